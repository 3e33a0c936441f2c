// Text as XML and command output want it. Each writer gives the stream back and does nothing for a
// null or empty text.
//
// XML escapes five characters: "&quot;", "&amp;", "&apos;", "&lt;", "&gt;"; all other bytes pass as
// they are. Native text is taken character by character, as the locale of the process divides it. A
// character that is none, or that cannot be converted, raises BadUnicodeString, with what is
// before it already written.
#pragma once

#include <iosfwd>

#include "vantry/base/output_sink.h"

namespace vantry::base {

/// UTF-8 text, escaped for XML.
std::ostream& writeEscapedUtf8(std::ostream& out, const char* text);
OutputSink& writeEscapedUtf8(OutputSink& out, const char* text);

/// UTF-16 text as UTF-8, escaped for XML.
std::ostream& writeEscapedUtf16(std::ostream& out, const char16_t* text);
OutputSink& writeEscapedUtf16(OutputSink& out, const char16_t* text);

/// Native text as UTF-8, escaped for XML.
std::ostream& writeEscapedLocaleText(std::ostream& out, const char* text);
OutputSink& writeEscapedLocaleText(OutputSink& out, const char* text);

/// Native text as UTF-8.
std::ostream& writeLocaleText(std::ostream& out, const char* text);
OutputSink& writeLocaleText(OutputSink& out, const char* text);

/// Native text between double quotes, which are the caller's: backspace, tab, newline, return,
/// double quote and backslash are written with a backslash.
std::ostream& writeQuotedText(std::ostream& out, const char* text);
OutputSink& writeQuotedText(OutputSink& out, const char* text);

}  // namespace vantry::base
