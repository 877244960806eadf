#pragma once

/// Makes standard input readable from its beginning, as often as this is called. The first call
/// copies it into memory. Throws: std::system_error.
void RewindStandardInput();
