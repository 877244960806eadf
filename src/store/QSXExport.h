#pragma once

/// Marks what other programs may link to; everything else of the shared libraries is hidden. On a
/// class it also keeps one type identity across libraries, which exceptions and casts between them
/// need.
#define QSX_API __attribute__((visibility("default")))
