#include "zrd/view/page_template.h"

#include "zrd/commands.h"

#ifdef VANTRY_HAS_PAGE

// From page_template.S.
extern "C" const char vantry_page_template[];
extern "C" const char vantry_page_template_end[];

std::string_view vantry::zrd::pageTemplate() {
  return {vantry_page_template, vantry_page_template_end};
}

#else

std::string_view vantry::zrd::pageTemplate() {
  throw Failure(noBrowser,
                "this program was built without the page that shows plots: install the Debian "
                "packages nodejs and npm, and build it again");
}

#endif
