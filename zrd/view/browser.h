// The browser of the user.
#pragma once

#include <string>

namespace vantry::zrd {

/// Opens a file in the browser that the environment variable BROWSER names, or else in the one of
/// the desktop, and waits for the program to end. BROWSER may have several commands with colons
/// between them, which are tried in turn; "%s" in one stands for the file, which otherwise is put
/// at its end. Throws Failure if none of them succeeds.
void openInBrowser(const std::string& file);

}  // namespace vantry::zrd
