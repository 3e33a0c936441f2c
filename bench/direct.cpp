// A program made for two kinds of the measured documents, mesh and objects, and for nothing else:
// it builds no tree, and writes while it reads. What it takes is what a conversion could cost at
// best with this parser and this formatter. Its output is that of vantry to the byte.

#include <expat.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "vantry/javaview/header.h"
#include "vantry/javaview/javaview_output.h"
#include "vantry/javaview/javaview_writer.h"

namespace {

using vantry::plot::RGBA;

constexpr std::string_view endOfGeometry = R"(<material>
<ambientIntensity>0.2</ambientIntensity>
<diffuse><color>128 128 128</color></diffuse>
<emissive><color>0 0 0</color></emissive>
<shininess>0.9</shininess>
<specular><color>128 128 128</color></specular>
<transparency visible="hide">0</transparency>
</material>
</geometry>
)";

/// Reads numbers with one blank between them.
void scan(const char* text, const char* end, std::span<double> numbers) {
  for (double& number : numbers) {
    text = std::from_chars(text, end, number).ptr;
    text += text < end;
  }
}

std::int64_t integer(const char* text) {
  std::int64_t number = 0;
  std::from_chars(text, text + std::strlen(text), number);
  return number;
}

/// The value of an attribute that must be there.
const char* valueOf(const char** attributes, std::string_view name) {
  while (*attributes != name) attributes += 2;
  return attributes[1];
}

class Converter {
 public:
  explicit Converter(std::ostream& stream) {
    out_.attach(stream);
    vantry::javaview::writeJvxHeader(out_, vantry::javaview::JavaViewWriter::timestamp());
    out_ << "<geometries>\n";
  }

  void start(std::string_view name, const char** attributes) {
    name.remove_prefix(name.rfind('\1') + 1);  // the namespace
    if (name == "P3") {
      length_ = 0;
      isInPoint_ = true;
    } else if (name == "Line2d") {
      writeLine(valueOf(attributes, "From"), valueOf(attributes, "To"));
    } else if (name == "Obj2d") {
      style_ = &styles_[valueOf(attributes, "Type")];
    } else if (name == "ObjStyle") {
      readStyle(attributes);
    } else if (name == "Mesh3d") {
      columns_ = integer(valueOf(attributes, "UMesh"));
      rows_ = integer(valueOf(attributes, "VMesh"));
      out_ << R"(<geometry>
<pointSet dim="3" pointOutline="hide" color="hide" point="show">
<points num=")"
           << columns_ * rows_ << "\">\n";
    }
  }

  void end(std::string_view name) {
    if (isInPoint_) {
      writePoint();
    } else if (name.ends_with("Mesh3d")) {
      writeFaces();
    } else if (name.ends_with("Canvas")) {
      out_ << "</geometries>\n</jvx-model>\n";
      out_.flush();
    }
  }

  void characters(const char* text, int length) {
    if (!isInPoint_) return;
    std::memcpy(text_.data() + length_, text, static_cast<std::size_t>(length));
    length_ += static_cast<std::size_t>(length);
  }

 private:
  struct Style {
    double width = 0;
    RGBA color;
  };

  void readStyle(const char** attributes) {
    Style& style = styles_[valueOf(attributes, "Type")];
    const char* const width = valueOf(attributes, "LineWidth");
    std::from_chars(width, width + std::strlen(width), style.width);
    std::array<int, 3> parts{};
    const char* digits = valueOf(attributes, "LineColor") + 1;
    for (int& part : parts) {
      std::from_chars(digits, digits + 2, part, 16);
      digits += 2;
    }
    style.color = RGBA(parts[0], parts[1], parts[2]);
  }

  void writePoint() {
    isInPoint_ = false;
    std::array<double, 3> p{};
    scan(text_.data(), text_.data() + length_, p);
    out_ << "<p>" << p[0] << ' ' << p[1] << ' ' << p[2] << "</p>\n";
  }

  void writeFaces() {
    const std::int64_t columns = columns_ - 1;
    const std::int64_t rows = rows_ - 1;
    out_ << R"(<thickness>3.54331</thickness>
<color>0 0 0</color>
</points>
</pointSet>
<faceSet face="show" edge="show" color="hide" colorFromPoints="hide" colorSmooth="hide">
<faces num=")"
         << columns * rows << "\">\n";
    for (std::int64_t row = 0; row < rows; ++row) {
      for (std::int64_t a = row * columns_; a < row * columns_ + columns; ++a) {
        out_ << "<f>" << a << ' ' << a + 1 << ' ' << a + columns_ + 1 << ' ' << a + columns_
             << "</f>\n";
      }
    }
    out_ << "<color>255 0 0</color>\n</faces>\n<neighbours num=\"" << columns * rows << "\">\n";
    std::int64_t face = 0;
    for (std::int64_t row = 0; row < rows; ++row) {
      for (std::int64_t column = 0; column < columns; ++column, ++face) {
        out_ << "<nb>" << (column + 1 < columns ? face + 1 : -1) << ' '
             << (row + 1 < rows ? face + columns : -1) << ' ' << (column > 0 ? face - 1 : -1) << ' '
             << (row > 0 ? face - columns : -1) << "</nb>\n";
      }
    }
    out_ << R"(</neighbours>
<edges>
<thickness>1.77165</thickness>
<color>0 0 0</color>
</edges>
</faceSet>
)" << endOfGeometry;
  }

  void writeLine(const char* from, const char* to) {
    std::array<double, 4> p{};
    scan(from, from + std::strlen(from), std::span(p).first<2>());
    scan(to, to + std::strlen(to), std::span(p).last<2>());
    out_ << "<geometry>\n<pointSet dim=\"2\" point=\"hide\">\n<points num=\"2\">\n<p>" << p[0]
         << ' ' << p[1] << "</p>\n<p>" << p[2] << ' ' << p[3] << "</p>\n";
    out_.writeColor(style_->color);
    out_ << "</points>\n</pointSet>\n<lineSet>\n<lines num=\"1\">\n<l>0 1</l>\n";
    out_.writeThickness(style_->width);
    out_.writeColor(style_->color);
    out_ << "</lines>\n</lineSet>\n" << endOfGeometry;
  }

  vantry::javaview::JavaViewOutput out_;
  std::array<char, 1024> text_;  // of a point; no measured document has longer ones
  std::size_t length_ = 0;
  bool isInPoint_ = false;
  std::int64_t columns_ = 0;
  std::int64_t rows_ = 0;
  std::unordered_map<std::string, Style> styles_;
  const Style* style_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: bench_direct <in-file> <out-file>\n", stderr);
    return 1;
  }
  std::ifstream in(argv[1], std::ios::binary);
  std::ofstream out(argv[2], std::ios::binary);
  Converter converter(out);

  XML_Parser parser = XML_ParserCreateNS(nullptr, '\1');
  XML_SetUserData(parser, &converter);
  XML_SetElementHandler(
      parser,
      [](void* self, const char* name, const char** attributes) {
        static_cast<Converter*>(self)->start(name, attributes);
      },
      [](void* self, const char* name) { static_cast<Converter*>(self)->end(name); });
  XML_SetCharacterDataHandler(parser, [](void* self, const char* text, int length) {
    static_cast<Converter*>(self)->characters(text, length);
  });
  std::array<char, 64 * 1024> block;
  bool isAccepted = true;
  do {
    in.read(block.data(), block.size());
    isAccepted = XML_Parse(parser, block.data(), static_cast<int>(in.gcount()), in.eof()) != 0;
  } while (isAccepted && !in.eof());
  XML_ParserFree(parser);
  out.close();
  return isAccepted && in.eof() && out ? 0 : 2;
}
