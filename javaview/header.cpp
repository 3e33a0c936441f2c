#include "vantry/javaview/header.h"

namespace vantry::javaview {

void beginHeader(JavaViewOutput& out, const DocumentType& type, std::string_view date) {
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n"
      << "<!DOCTYPE " << type.root << " SYSTEM \"" << type.systemIdentifier << "\">\n"
      << "<" << type.root << ">\n"
      << "<meta generator=\"vantry vers " VANTRY_VERSION "\"/>\n"
      << "<meta date=\"" << date << "\"/>\n"
      << "<meta dtd=\"" << type.dtdVersion << "\"/>\n"
      << R"(<version></version>
<title></title>
<authors>
  <author>
   <firstname></firstname>
   <lastname></lastname>
   <affiliation>
     <organization></organization>
     <address>
       <line></line>
     </address>
   </affiliation>
   <email></email>
   <url></url>
  </author>
</authors>
<description>
  <abstract></abstract>
)";
}

void writeJvxHeader(JavaViewOutput& out, std::string_view date) {
  beginHeader(out, {"jvx-model", "http://www.javaview.de/rsrc/jvx.dtd", "1.10.000"}, date);
  out << R"(  <detail></detail>
  <msc2000>
    <primary></primary>
  </msc2000>
  <keywords>
    <keyword></keyword>
  </keywords>
  <zentralblatt></zentralblatt>
  <software>Quillon Pro vers 3.1</software>
</description>
)";
}

}  // namespace vantry::javaview
