// Small documents and what becomes of them.
#pragma once

#include <regex>
#include <string>

inline const std::string staticDocument =
    "<Canvas xmlns=\"http://plots.example/xml/Corvane\">"
    "<Scene3d><CoordinateSystem3d/></Scene3d></Canvas>\n";

inline const std::string animatedDocument =
    "<Canvas xmlns=\"http://plots.example/xml/Corvane\">"
    "<TimeRange TimeBegin=\"0\" TimeEnd=\"1\"/>"
    "<Scene3d><CoordinateSystem3d/></Scene3d></Canvas>\n";

/// Holds a point of two coordinates where three are needed.
inline const std::string corruptedDocument =
    "<Canvas xmlns=\"http://plots.example/xml/Corvane\">"
    "<Scene3d><CoordinateSystem3d><Obj3d Type=\"Function3d\"><Img3d><Poly3d><P3>1 2</P3>"
    "</Poly3d></Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>\n";

inline const std::string jvxHeader =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="no"?>
<!DOCTYPE jvx-model SYSTEM "http://www.javaview.de/rsrc/jvx.dtd">
<jvx-model>
<meta generator="vantry vers 1.5"/>
<meta date="DATE"/>
<meta dtd="1.10.000"/>
<version></version>
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
  <detail></detail>
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

/// The output of a document without objects.
inline const std::string emptyJvx = jvxHeader + "<geometries>\n</geometries>\n</jvx-model>\n";

/// An output with "DATE" in the place of its date.
inline std::string undated(const std::string& output) {
  static const std::regex date(
      "date=\"[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9]\\d \\d\\d:\\d\\d:\\d\\d \\d{4}\"");
  return std::regex_replace(output, date, "date=\"DATE\"");
}
