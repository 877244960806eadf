#include "html/BundledFiles.h"

#include <cstddef>

// In BundledFiles.S.
extern "C" {
extern const char qsx_style_sheet[];
extern const char qsx_style_sheet_end[];
extern const char qsx_script[];
extern const char qsx_script_end[];
}

std::string_view GetStyleSheet()
{
   return {qsx_style_sheet, static_cast<std::size_t>(qsx_style_sheet_end - qsx_style_sheet)};
}

std::string_view GetScript()
{
   return {qsx_script, static_cast<std::size_t>(qsx_script_end - qsx_script)};
}
