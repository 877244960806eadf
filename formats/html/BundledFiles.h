#pragma once

#include <string_view>

/// pages.css and pages.js, as they were when the tool was built.
std::string_view GetStyleSheet();
std::string_view GetScript();
