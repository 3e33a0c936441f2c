#include "shapes.h"

#include "../../colliding_words.h"
#include "pieces.h"

namespace {

/// One text for each word, which it holds in the place of "#".
std::string withWords(const std::string& text, const std::vector<std::string>& words) {
  std::string all;
  for (const std::string& word : words) {
    for (const char c : text) c == '#' ? all += word : all += c;
  }
  return all;
}

/// An object whose images are those of an animation from 0 to 1.
std::string animation(const std::string& images, const std::string& begin, const std::string& end) {
  return canvas(
      "<TimeRange TimeBegin='0' TimeEnd='1'/><Scene2d><CoordinateSystem2d>"
      "<Obj2d Type='Curve2d' TimeBegin='0' TimeEnd='1'>" +
      begin + images + end + "</Obj2d></CoordinateSystem2d></Scene2d>");
}

const std::string emptyScene = "<Scene2d><CoordinateSystem2d/></Scene2d>";
const std::string line = "<Line2d From='0 0' To='3 4'/>";
const std::string object = "<Obj2d Type='Line2d'><Img2d>" + line + "</Img2d></Obj2d>";
const std::string keyFrame = "<Img2d Param='#'>" + line + "</Img2d>";
const std::string bounds = "<ParameterBegin Val='0'/><ParameterEnd Val='1000'/>";
const std::string equalBounds = "<ParameterBegin Val='5'/><ParameterEnd Val='5'/>";

const std::vector<std::string> frames = {"-f", "20", "-o", "out.jvx"};
const std::vector<std::string> display = {"-d"};

/// A namespace of the format that is `size` bytes longer than others, and elements of it.
std::string longNamespace(std::size_t size, const std::string& declaration,
                          const std::string& content) {
  return "<Canvas " + declaration + "='http://" + std::string(size, 'n') + "/xml/Corvane'>" +
         content + "</Canvas>";
}

std::vector<Shape> nestedShapes() {
  return {
      {"NestedGroups", 1000,
       [](std::size_t n) { return plane(nested("<Group2d>", object, "</Group2d>", n)); }},
      {"NestedTransforms", 500,
       [](std::size_t n) {
         return plane(
             nested("<Transform2d Type='Translate2d'><Tr2d/>", object, "</Transform2d>", n));
       }},
      {"NestedUnknownElements", 3000,
       [](std::size_t n) { return plane(nested("<Unknown>", "", "</Unknown>", n) + object); }},
      {"StylesInEachOfNestedGroups", 500,
       [](std::size_t n) {
         return plane(nested("<Group2d><ObjStyle Type='Line2d' LineWidth='1'/>" + object, "",
                             "</Group2d>", n));
       }},
      {"StylesBehindNestedGroups", 500,
       [](std::size_t n) {
         return plane(nested("<Group2d>", object, "<ObjStyle Type='Line2d'/></Group2d>", n));
       }},
      {"StylesInGroupsThatAreDeepDown", 300,
       [](std::size_t n) {
         return plane(nested(
             "<Group2d>", repeated("<Group2d><ObjStyle Type='Line2d'/>" + object + "</Group2d>", n),
             "</Group2d>", n));
       }},
      {"EntitiesThatHoldEachOther", 500,
       [](std::size_t n) {
         std::string chain = "<!ENTITY e0 'e'>";
         for (std::size_t i = 1; i < n; ++i) {
           chain += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
         }
         return image("<Text2d Position='1 2'>&e" + std::to_string(n - 1) + ";</Text2d>")
             .insert(0, "<!DOCTYPE Canvas [" + chain + "]>");
       }},
  };
}

std::vector<Shape> siblingShapes() {
  return {
      {"EmptyGroups", 3000, [](std::size_t n) { return plane(repeated("<Group2d/>", n)); }},
      {"Blanks", 50'000, [](std::size_t n) { return plane(std::string(n, ' ') + object); }},
      {"Objects", 300, [](std::size_t n) { return plane(repeated(object, n)); }},
      {"ObjectsOnDisplay", 300, [](std::size_t n) { return plane(repeated(object, n)); }, display},
      {"ObjectsInSpace", 300,
       [](std::size_t n) {
         return space(repeated("<Obj3d Type='Box'><Img3d><Box/></Img3d></Obj3d>", n));
       }},
      {"OptionsThatAreReplaced", 500,
       [](std::size_t n) {
         return plane(object + repeated("<Group2d/>", n) +
                      repeated("<XAxisTitle>x</XAxisTitle><YAxisTitle>y</YAxisTitle>", n));
       }},
      {"TimeRangesThatAreReplaced", 1000,
       [](std::size_t n) {
         return canvas(repeated("<TimeRange TimeBegin='0' TimeEnd='1'/>", n) +
                       "<Scene2d><CoordinateSystem2d/></Scene2d>");
       }},
      {"ExpressionsInAList", 1000,
       [](std::size_t n) {
         return plane("<Obj2d Type='F'><Img2d/><ExprSeq Opt='o'>" +
                      repeated("<IExpr>1</IExpr>", n) + "</ExprSeq></Obj2d>");
       }},
      {"ExpressionsOfAnObject", 1000,
       [](std::size_t n) {
         return plane("<Obj2d Type='F'><Img2d/>" + numbered("<Expr Opt='o#'>x</Expr>", n) +
                      "</Obj2d>");
       }},
      {"TicksOnDisplay", 300,
       [](std::size_t n) {
         return plane("<XTicksAt>" +
                      repeated("<TickPos><VExpr Val='1'>1</VExpr><Title>t</Title></TickPos>", n) +
                      "</XTicksAt>");
       },
       display},
      {"CamerasOnDisplay", 300,
       [](std::size_t n) {
         return space(repeated("<Obj3d Type='Camera'><Img3d><Camera/></Img3d></Obj3d>", n));
       },
       display},
      {"LightsOnDisplay", 300,
       [](std::size_t n) {
         return space(repeated("<Obj3d Type='PointLight'><Img3d><PointLight/></Img3d></Obj3d>", n));
       },
       display},
  };
}

std::vector<Shape> styleShapes() {
  return {
      {"StylesOfOneType", 500,
       [](std::size_t n) {
         return plane(repeated("<ObjStyle Type='Line2d' LineWidth='1'/>", n) + object);
       }},
      {"StylesOfManyTypes", 500,
       [](std::size_t n) {
         return plane(numbered("<ObjStyle Type='K#' LineWidth='1#'/>", n) + object);
       }},
      {"StylesForEachObject", 300,
       [](std::size_t n) {
         return plane(numbered("<ObjStyle Type='K#' LineWidth='2'/>", n) +
                      numbered("<Obj2d Type='K#'><Img2d>" + line + "</Img2d></Obj2d>", n));
       }},
      {"StylesOfManyTypesInGroups", 300,
       [](std::size_t n) {
         return plane(numbered("<Group2d><ObjStyle Type='K#'/></Group2d>", n) + object);
       }},
      {"StylesBehindTheirObjects", 300,
       [](std::size_t n) {
         return plane(repeated(object, n) + repeated("<ObjStyle Type='Line2d'/>", n));
       }},
      {"StylesBetweenTheirObjects", 300,
       [](std::size_t n) { return plane(repeated("<ObjStyle Type='Line2d'/>" + object, n)); }},
      {"WordsThatCollide", 1000,
       [](std::size_t n) {
         return plane(withWords("<ObjStyle Type='#'/>", collidingWords(n)) + object);
       }},
  };
}

std::vector<Shape> keyFrameShapes() {
  return {
      {"KeyFramesBehindTheirBounds", 200,
       [](std::size_t n) { return animation(numbered(keyFrame, n), bounds, ""); }, frames},
      {"KeyFramesBeforeTheirBounds", 200,
       [](std::size_t n) { return animation(numbered(keyFrame, n), "", bounds); }, frames},
      {"KeyFramesBetweenEqualBounds", 200,
       [](std::size_t n) { return animation(numbered(keyFrame, n), equalBounds, ""); }, frames},
      {"KeyFramesBeforeEqualBounds", 200,
       [](std::size_t n) { return animation(numbered(keyFrame, n), "", equalBounds); }, frames},
      {"KeyFramesWithoutBounds", 200,
       [](std::size_t n) { return animation(numbered(keyFrame, n), "", ""); }, frames},
      {"KeyFramesOfATransform", 200,
       [](std::size_t n) {
         return canvas(
             "<TimeRange TimeBegin='0' TimeEnd='1'/><Scene2d><CoordinateSystem2d>"
             "<Transform2d Type='Translate2d'>" +
             numbered("<Tr2d Param='#'/>", n) + object +
             "</Transform2d></CoordinateSystem2d></Scene2d>");
       },
       frames},
      {"AnimatedObjects", 50,
       [](std::size_t n) {
         return canvas("<TimeRange TimeBegin='0' TimeEnd='1'/><Scene2d><CoordinateSystem2d>" +
                       repeated("<Obj2d Type='Line2d' TimeBegin='0' TimeEnd='1'>" + bounds +
                                    "<Img2d Param='0'>" + line + "</Img2d></Obj2d>",
                                n) +
                       "</CoordinateSystem2d></Scene2d>");
       },
       frames},
  };
}

std::vector<Shape> nameShapes() {
  return {
      {"LongNamespace", 1000,
       [](std::size_t n) {
         return longNamespace(50 * n, "xmlns:p", emptyScene + repeated("<p:Unknown/>", n));
       }},
      {"LongDefaultNamespace", 1000,
       [](std::size_t n) {
         return longNamespace(50 * n, "xmlns",
                              "<Scene2d><CoordinateSystem2d>" + repeated("<Group2d/>", n) +
                                  "</CoordinateSystem2d></Scene2d>");
       }},
      {"LongNamespacesInTurn", 1000,
       [](std::size_t n) {
         return longNamespace(50 * n, "xmlns:p='urn:q" + std::string(50 * n, 'q') + "' xmlns",
                              emptyScene + repeated("<p:a/><Unknown/>", n));
       }},
      {"LongNamespaceOfTwoPrefixes", 1000,
       [](std::size_t n) {
         const std::string uri = "urn:q" + std::string(50 * n, 'q');
         return longNamespace(0, "xmlns:p='" + uri + "' xmlns:q='" + uri + "' xmlns",
                              emptyScene + repeated("<p:a/><q:a/>", n));
       }},
      {"LongNamespaceAroundShortOnes", 1000,
       [](std::size_t n) {
         return longNamespace(50 * n, "xmlns",
                              "<Scene2d><CoordinateSystem2d>" +
                                  repeated("<Group2d xmlns:x='u'/>", n) +
                                  "</CoordinateSystem2d></Scene2d>");
       }},
      {"NamespacesThatDiffer", 1000,
       [](std::size_t n) { return plane(numbered("<x#:Foo xmlns:x#='urn:#'/>", n) + object); }},
      {"PrefixesOfOneNamespace", 2000,
       [](std::size_t n) {
         return "<Canvas" + numbered(" xmlns:p#='urn:p'", n) + ">" + emptyScene +
                numbered("<p#:a/>", n) + "</Canvas>";
       }},
      {"OneNamespaceInEachOfNestedGroups", 2000,
       [](std::size_t n) {
         return plane(nested("<Group2d xmlns:p='urn:p'><p:a/>", object, "</Group2d>", n));
       }},
      {"ElementsThatNobodyKnows", 3000,
       [](std::size_t n) { return plane(numbered("<a#/>", n) + object); }},
      {"AttributesThatNobodyKnowsOfOneElement", 3000,
       [](std::size_t n) { return plane("<Group2d" + numbered(" a#=''", n) + "/>"); }},
      {"AttributesThatNobodyKnowsOfManyElements", 2000,
       [](std::size_t n) { return plane(repeated("<Group2d a='' b='' c='' d='' e=''/>", n)); }},
      {"LongAttributeThatNobodyKnowsOfManyElements", 100,
       [](std::size_t n) {
         return plane(repeated("<Group2d " + std::string(1000, 'a') + "=''/>", n));
       }},
      {"AttributesThatDifferInALongNamespace",
       1000,
       [](std::size_t n) {
         return longNamespace(50 * n, "xmlns:x",
                              "<Scene2d><CoordinateSystem2d>" + numbered("<Group2d x:a#=''/>", n) +
                                  "</CoordinateSystem2d></Scene2d>");
       },
       {},
       End::tooLarge},
      {"AttributesOfOneElementInALongNamespace",
       1000,
       [](std::size_t n) {
         return longNamespace(50 * n, "xmlns:x",
                              "<Scene2d><CoordinateSystem2d><Group2d" + numbered(" x:a#=''", n) +
                                  "/></CoordinateSystem2d></Scene2d>");
       },
       {},
       End::outOfMemory},
      {"LongNameOfAnElement", 50'000,
       [](std::size_t n) { return plane("<" + std::string(n, 'a') + "/>" + object); }},
  };
}

std::vector<Shape> tokenShapes() {
  return {
      {"LongAttribute", 50'000,
       [](std::size_t n) { return plane("<Group2d Name='" + std::string(n, 'x') + "'/>"); }},
      {"LongAttributeThatNobodyKnows", 50'000,
       [](std::size_t n) { return plane("<Group2d a='" + std::string(n, 'x') + "'/>"); }},
      {"LongComment", 50'000,
       [](std::size_t n) { return plane("<!--" + std::string(n, 'c') + "-->" + object); }},
      {"LongInstruction", 50'000,
       [](std::size_t n) { return plane("<?p " + std::string(n, 'p') + "?>" + object); }},
      {"LongCdata", 50'000,
       [](std::size_t n) { return plane("<![CDATA[" + std::string(n, 'c') + "]]>" + object); }},
      {"LongText", 50'000,
       [](std::size_t n) {
         return image("<Text2d Position='1 2'>" + std::string(n, 'y') + "</Text2d>");
       }},
      {"LongTextThatNobodyTakes", 50'000,
       [](std::size_t n) { return plane(std::string(n, 'y') + object); }},
      {"LongLiteral", 50'000,
       [](std::size_t n) {
         return plane(object, "<!DOCTYPE Canvas [<!ENTITY e '" + std::string(n, 'e') + "'>]>");
       }},
      {"LongPoint", 50'000,
       [](std::size_t n) {
         return image("<Pts2d><P2>1" + std::string(n, ' ') + "2</P2></Pts2d>");
       }},
      {"Comments", 5000, [](std::size_t n) { return plane(repeated("<!--c-->", n) + object); }},
      {"Cdata", 3000,
       [](std::size_t n) {
         return image("<Text2d Position='1 2'>" + repeated("<![CDATA[c]]>", n) + "</Text2d>");
       }},
      {"CharacterReferences", 5000,
       [](std::size_t n) {
         return image("<Text2d Position='1 2'>" + repeated("&#65;&lt;", n) + "</Text2d>");
       }},
      {"NotWellFormed",
       100'000,
       [](std::size_t n) { return "<Canvas></Scene>" + std::string(n, ' '); },
       {},
       End::notWellFormed},
  };
}

std::vector<Shape> amplifiedShapes() {
  return {
      {"LongDefaultOfManyElements",
       5000,
       [](std::size_t n) {
         return plane(repeated("<Group2d/>", n),
                      "<!DOCTYPE Canvas [<!ATTLIST Group2d Name CDATA '" +
                          std::string(10 * n, 'x') + "'>]>");
       },
       {},
       End::tooLarge},
      {"LongNamespaceByDefault",
       5000,
       [](std::size_t n) {
         return plane(repeated("<x/>", n), "<!DOCTYPE Canvas [<!ATTLIST x xmlns CDATA '" +
                                               std::string(10 * n, 'x') + "'>]>");
       },
       {},
       End::tooLarge},
      {"ShortDefaultOfManyElements", 1000,
       [](std::size_t n) {
         return plane(repeated("<Group2d/>", n),
                      "<!DOCTYPE Canvas [<!ATTLIST Group2d Name CDATA 'x' a CDATA 'y'>]>");
       }},
      {"DefaultsOfOneElement", 1000,
       [](std::size_t n) {
         return plane("<Group2d/>",
                      "<!DOCTYPE Canvas [<!ATTLIST Group2d" + numbered(" a# CDATA 'x'", n) + ">]>");
       }},
      {"DeclaredAttributesOfManyElements",
       5000,
       [](std::size_t n) {
         return plane(repeated("<Group2d/>", n), "<!DOCTYPE Canvas [<!ATTLIST Group2d" +
                                                     repeated(" a CDATA #IMPLIED", n) + ">]>");
       },
       {},
       End::tooLarge},
      {"ShortEntity", 3000,
       [](std::size_t n) {
         return image("<Text2d Position='1 2'>" + repeated("&e;", n) + "</Text2d>")
             .insert(0, "<!DOCTYPE Canvas [<!ENTITY e 'eeeeeeeeee'>]>");
       }},
      {"LongEntity",
       10'000,
       [](std::size_t n) {
         return image("<Text2d Position='1 2'>" + repeated("&e;", n) + "</Text2d>")
             .insert(0, "<!DOCTYPE Canvas [<!ENTITY e '" + std::string(10 * n, 'e') + "'>]>");
       },
       {},
       End::tooLarge},
  };
}

std::vector<Shape> dataShapes() {
  return {
      {"PointsInThePlane", 1000,
       [](std::size_t n) { return image("<Pts2d>" + repeated("<P2>1 2</P2>", n) + "</Pts2d>"); }},
      {"ColouredPointsInThePlane", 1000,
       [](std::size_t n) {
         return image("<Poly2d>" + repeated("<P2>1 2 #ff0000</P2>", n) + "</Poly2d>");
       }},
      {"PointsInSpace", 1000,
       [](std::size_t n) {
         return body("<Poly3d>" + repeated("<P3>1 2 3</P3>", n) + "</Poly3d>");
       }},
      {"PointsWithNormals", 500,
       [](std::size_t n) {
         return body("<Surf3d Type='Triangles'>" +
                     repeated("<P3>1 2 3 0 0 1 #ff0000 #00ff00</P3>", 3 * n) + "</Surf3d>");
       }},
      {"Mesh", 500,
       [](std::size_t n) {
         return body("<Mesh3d UMesh='" + std::to_string(n) + "' VMesh='2'>" +
                     repeated("<P3>1 2 3</P3>", 2 * n) + "</Mesh3d>");
       }},
      {"Arrows", 300,
       [](std::size_t n) { return image(repeated("<Arrow2d From='0 0' To='1 1'/>", n)); }},
      {"Asymptotes", 300,
       [](std::size_t n) { return image(repeated("<VerticalAsymptote Position='1'/>", n)); }},
      {"Texts", 500,
       [](std::size_t n) { return image(repeated("<Text2d Position='1 2'>text</Text2d>", n)); }},
      {"Values", 2000,
       [](std::size_t n) {
         return image("<DensityArray2d XMesh='" + std::to_string(n) +
                      "' YMesh='1' XMin='0' XMax='1' YMin='0' YMax='1'>" + repeated("0.5 ", n) +
                      "</DensityArray2d>");
       }},
      {"Colours", 2000,
       [](std::size_t n) {
         return image("<ColorArray2d XMesh='" + std::to_string(n) +
                      "' YMesh='1' XMin='0' XMax='1' YMin='0' YMax='1'>" + repeated("#0080ff ", n) +
                      "</ColorArray2d>");
       }},
  };
}

}  // namespace

const std::vector<Shape>& shapes() {
  static const std::vector<Shape> all = [] {
    std::vector<Shape> joined;
    for (const auto& group : {nestedShapes(), siblingShapes(), styleShapes(), keyFrameShapes(),
                              nameShapes(), tokenShapes(), amplifiedShapes(), dataShapes()}) {
      joined.insert(joined.end(), group.begin(), group.end());
    }
    return joined;
  }();
  return all;
}
