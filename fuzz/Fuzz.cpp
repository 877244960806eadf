// The entry for libFuzzer. QSX_FUZZ_TARGET names the target.

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "Targets.h"

namespace {

void (*gTry)(const std::string& bytes) = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
   const char* wanted = std::getenv("QSX_FUZZ_TARGET");
   for (const TFuzzTarget& target : GetFuzzTargets())
      if (wanted != nullptr && std::string(wanted) == target.fName)
         gTry = target.fTry;
   if (gTry == nullptr) {
      std::fprintf(stderr, "QSX_FUZZ_TARGET names no target\n");
      std::exit(2);
   }
   // Tables whose columns don't add up are told there.
   std::cout.setstate(std::ios::failbit);
   return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
   gTry(std::string(reinterpret_cast<const char*>(data), size));
   return 0;
}
