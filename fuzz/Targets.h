#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One road that bytes of a stranger take. It ends the process where a law is broken; an input that
/// is refused as it should be is none.
struct TFuzzTarget
{
   const char* fName;
   void (*fTry)(const std::string& bytes);
};

/// Their names are those of the folders in fuzz/inputs.
const std::vector<TFuzzTarget>& GetFuzzTargets();
