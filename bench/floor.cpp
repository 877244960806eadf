// How long the least takes that a report of a CIM-XML file can do: read the file, parse it in
// place, and write as many bytes as the report has. Usage: floor INPUT BYTES OUTPUT
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <pugixml.hpp>

int main(int argc, char** argv)
{
   if (argc != 4)
      return 2;
   std::FILE* const input = std::fopen(argv[1], "rb");
   if (input == nullptr)
      return 3;
   std::fseek(input, 0, SEEK_END);
   std::vector<char> text(static_cast<std::size_t>(std::ftell(input)));
   std::rewind(input);
   if (std::fread(text.data(), 1, text.size(), input) != text.size())
      return 3;
   std::fclose(input);
   pugi::xml_document document;
   if (!document.load_buffer_inplace(text.data(), text.size()))
      return 3;

   std::FILE* const output = std::fopen(argv[3], "wb");
   const std::vector<char> block(1 << 20, 'x');
   for (auto left = static_cast<std::size_t>(std::strtoull(argv[2], nullptr, 10)); left > 0;) {
      const std::size_t size = left < block.size() ? left : block.size();
      if (output == nullptr || std::fwrite(block.data(), 1, size, output) != size)
         return 4;
      left -= size;
   }
   return std::fclose(output) == 0 ? 0 : 4;
}
