// Whole conversions: from the text of a document to the text of a model.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "vantry/javaview/export_error.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/document.h"
#include "vantry/plot/values/variants.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace vantry::javaview {

/// A document that is read from a text and torn down at the end.
class ReadDocument {
 public:
  explicit ReadDocument(std::string_view text) {
    reader::Parser parser(&handler_, true, nullptr);
    isWellFormed_ = parser.parse(text.data(), static_cast<int>(text.size()), true);
  }
  ~ReadDocument() { document_->tearDown(); }

  bool isWellFormed() const { return isWellFormed_; }
  plot::PlotDocument* operator->() const { return document_.get(); }
  plot::PlotDocument* get() const { return document_.get(); }

 private:
  base::Ref<plot::PlotDocument> document_{new plot::PlotDocument};
  reader::ZrdParserHandler handler_{document_.get(), true, nullptr};
  bool isWellFormed_ = false;
};

/// Any writer, with its warnings kept.
template <class Writer>
class WarningsWriter : public Writer {
 public:
  using Writer::Writer;
  void warning(const char* text) override { warnings.emplace_back(text); }
  std::vector<std::string> warnings;
};

/// The whole content of a file.
inline std::string fileContent(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// How often `part` occurs in `text`.
inline std::size_t countOf(std::string_view part, std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}

/// The text without its header.
inline std::string withoutHeader(const std::string& text) {
  constexpr std::string_view end = "</description>\n";
  const std::size_t at = text.find(end);
  return at == std::string::npos ? text : text.substr(at + end.size());
}

/// What a writer makes of a document at a time.
template <class Writer>
struct Conversion {
  explicit Conversion(std::string_view source, double time = plot::nan) {
    const ReadDocument document(source);
    convert(document.get(), time);
    if (!document.isWellFormed()) error = "not well formed";
  }
  explicit Conversion(plot::PlotDocument* document, double time = plot::nan) {
    convert(document, time);
  }

  std::string body() const { return withoutHeader(text); }

  std::string text;  ///< up to the error, if there is one
  std::vector<std::string> warnings;
  std::string error;

 private:
  void convert(plot::PlotDocument* document, double time) {
    WarningsWriter<Writer> writer(document);
    std::ostringstream stream;
    try {
      writer.write(stream, time);
    } catch (const JavaViewExportError& failure) {
      error = failure.what();
    }
    warnings = writer.warnings;
    text = stream.str();
  }
};

using JvxConversion = Conversion<JVXWriter>;

}  // namespace vantry::javaview
