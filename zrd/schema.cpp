#include "zrd/schema.h"

#include <ostream>
#include <string>

#include "vantry/check/model_facts.h"
#include "vantry/plot/metadata/descriptions.h"
#include "zrd/format_namespace.h"

namespace vantry::zrd {

namespace {

using check::ClassFacts;
using check::Property;
using check::Token;
using check::ValueKind;
namespace Word = base::Word;

/// The patterns that attributes and data refer to. What follows a value is ignored by the reader,
/// so it is allowed here.
constexpr const char* patterns = R"(
  <define name="yesOrNo">
    <data type="string"><param name="pattern">\s*(0|1|true|false)(\s[\s\S]*)?</param></data>
  </define>
  <define name="number">
    <data type="string"><param name="pattern">\s*[+\-]?([0-9]|\.[0-9]|[nN][aA][nN]|[iI][nN][fF])[\s\S]*</param></data>
  </define>
  <define name="twoNumbers">
    <data type="string"><param name="pattern">\s*[+\-]?([0-9]|\.[0-9]|[nNiI])[\s\S]*</param></data>
  </define>
  <define name="threeNumbers"><ref name="twoNumbers"/></define>
  <define name="color">
    <data type="string"><param name="pattern">\s*#?[0-9A-Fa-f]{6}[\s\S]*</param></data>
  </define>
  <define name="word">
    <data type="string"><param name="pattern">\s*\S[\s\S]*</param></data>
  </define>
  <define name="foreign">
    <zeroOrMore>
      <attribute><nsName ns="http://www.w3.org/XML/1998/namespace"/></attribute>
    </zeroOrMore>
  </define>
)";

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '<') {
      result += "&lt;";
    } else if (c == '&') {
      result += "&amp;";
    } else {
      result += c;
    }
  }
  return result;
}

void writeDocumentation(std::ostream& out, std::string_view text) {
  if (!text.empty()) out << "<a:documentation>" << escaped(text) << "</a:documentation>";
}

const char* patternOf(ValueKind kind) {
  switch (kind) {
    case ValueKind::yesOrNo:
      return "<ref name=\"yesOrNo\"/>";
    case ValueKind::wholeNumber:
    case ValueKind::number:
      return "<ref name=\"number\"/>";
    case ValueKind::color:
      return "<ref name=\"color\"/>";
    case ValueKind::planePoint:
      return "<ref name=\"twoNumbers\"/>";
    case ValueKind::spacePoint:
      return "<ref name=\"threeNumbers\"/>";
    case ValueKind::word:
      return "<ref name=\"word\"/>";
    case ValueKind::font:
    case ValueKind::text:
      return "<text/>";
  }
  return "<text/>";
}

void writeValue(std::ostream& out, const Property& property) {
  const auto words = property.allowedWords();
  if (words.empty()) {
    out << patternOf(check::valueKind(property));
    return;
  }
  out << "<choice>";
  for (const Token word : words) out << "<value type=\"token\">" << word.str() << "</value>";
  out << "</choice>";
}

void writeAttribute(std::ostream& out, const ClassFacts& element, const Property& property) {
  const bool isRequired = element.needs(property.name());
  out << "      " << (isRequired ? "" : "<optional>") << "<attribute name=\""
      << property.name().str() << "\">";
  writeDocumentation(out, plot::propertyDescription(element.name, property.name()));
  writeValue(out, property);
  out << "</attribute>" << (isRequired ? "" : "</optional>") << '\n';
}

/// Text between elements is ignored by the reader.
void writeContent(std::ostream& out, const ClassFacts& element) {
  const bool isPoint = element.name == Word::P2 || element.name == Word::P3;
  if (isPoint || (element.holdsText && element.children.empty())) {
    out << "      <text/>\n";
    return;
  }
  out << "      <zeroOrMore>\n        <choice>\n          <text/>\n";
  for (const check::ChildFacts& child : element.children) {
    out << "          <ref name=\"element." << child.name.str() << "\"/>\n";
  }
  out << "        </choice>\n      </zeroOrMore>\n";
}

void writeElement(std::ostream& out, const ClassFacts& element) {
  out << "\n  <define name=\"element." << element.name.str() << "\">\n"
      << "    <element>\n"
      << "      <choice><name ns=\"\">" << element.name.str() << "</name><name>"
      << element.name.str() << "</name></choice>\n      ";
  writeDocumentation(out, plot::elementDescription(element.name));
  out << "\n      <ref name=\"foreign\"/>\n";
  for (const Property* property : element.properties) writeAttribute(out, element, *property);
  writeContent(out, element);
  out << "    </element>\n  </define>\n";
}

}  // namespace

void writeSchema(std::ostream& out) {
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!-- Plot documents in the language ZRD. Written by zrd schema. -->\n"
         "<grammar xmlns=\"http://relaxng.org/ns/structure/1.0\"\n"
         "         xmlns:a=\"http://relaxng.org/ns/compatibility/annotations/1.0\"\n"
         "         datatypeLibrary=\"http://www.w3.org/2001/XMLSchema-datatypes\"\n"
         "         ns=\""
      << formatNamespace
      << "\">\n\n"
         "  <start><ref name=\"element.Canvas\"/></start>\n"
      << patterns;
  for (const ClassFacts* element : check::documentClasses()) writeElement(out, *element);
  out << "</grammar>\n";
}

}  // namespace vantry::zrd
