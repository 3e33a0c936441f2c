// Texts in the form in which a page carries them.
#pragma once

#include <functional>
#include <iosfwd>

namespace vantry::page {

/// Writes to `out` all that `write` writes to the stream that it is given: its integers as
/// differences, compressed by gzip, in base64. Nothing is held back but blocks of fixed size. What
/// `write` throws passes, and leaves an incomplete text behind. Throws std::bad_alloc.
void writePacked(std::ostream& out, const std::function<void(std::ostream& text)>& write);

}  // namespace vantry::page
