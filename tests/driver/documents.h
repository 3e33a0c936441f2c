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

/// Has the text "é" at a point whose coordinates have fractions.
inline const std::string textDocument =
    "<Canvas xmlns=\"http://plots.example/xml/Corvane\"><Scene2d><CoordinateSystem2d>"
    "<Obj2d Type=\"Text2d\"><Img2d><Text2d Position=\"0.5 +2.25\">\xc3\xa9</Text2d>"
    "<Pts2d><P2>+1.5 -0.75</P2></Pts2d></Img2d></Obj2d>"
    "</CoordinateSystem2d></Scene2d></Canvas>\n";

inline const std::string noScene = "Error: no scene (exiting)\n";
inline const std::string notAnimated = "Warning: No animation, '-f' ignored.\n";
inline const std::string notRead = "Error: Can not read input file. (exiting)\n";
inline const std::string notWritten = "Error: Can not write output file. (exiting)\n";

/// What both kinds of output begin with, from their version to their abstract.
inline const std::string headerTexts = R"(<version></version>
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

inline const std::string jvxHeader =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="no"?>
<!DOCTYPE jvx-model SYSTEM "http://www.javaview.de/rsrc/jvx.dtd">
<jvx-model>
<meta generator="vantry vers 1.5"/>
<meta date="DATE"/>
<meta dtd="1.10.000"/>
)" + headerTexts +
    R"(  <detail></detail>
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

inline const std::string jvdHeader =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="no"?>
<!DOCTYPE jv-disp SYSTEM "http://www.javaview.de/rsrc/jv-disp.dtd">
<jv-disp>
<meta generator="vantry vers 1.5"/>
<meta date="DATE"/>
<meta dtd="1.04.000"/>
)" + headerTexts +
    "</description>\n";

/// An output with "DATE" in the place of its date.
inline std::string undated(const std::string& output) {
  static const std::regex date(
      "date=\"[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9]\\d \\d\\d:\\d\\d:\\d\\d \\d{4}\"");
  return std::regex_replace(output, date, "date=\"DATE\"", std::regex_constants::format_first_only);
}

/// How often the one text is in the other, without overlapping itself.
inline std::size_t countOf(const std::string& what, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += what.size()) {
    ++count;
  }
  return count;
}
