#pragma once

#include <string_view>

/// pages.css, as it was when the tool was built.
std::string_view GetStyleSheet();
