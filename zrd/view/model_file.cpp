#include "zrd/view/model_file.h"

#include <string>
#include <string_view>

#include "vantry/check/values.h"
#include "vantry/reader/xml_parser.h"
#include "zrd/commands.h"
#include "zrd/file_content.h"
#include "zrd/plot_file.h"

namespace vantry::zrd {

namespace {

/// Takes in nothing of a document but the name of its root.
class RootName final : public reader::Handler {
 public:
  const std::string& get() const { return name_; }

  bool lookupElement(std::string_view, const char* localName, std::uint32_t&,
                     std::uint32_t&) override {
    if (name_.empty()) name_ = localName;
    return false;
  }
  bool lookupAttribute(std::string_view, const char*, std::uint32_t&, std::uint32_t&) override {
    return false;
  }
  void startElement(std::uint32_t, std::uint32_t, const reader::AttributeList&) override {}
  void endElement(std::uint32_t, std::uint32_t) override {}
  void characters(const char*, std::size_t) override {}

 private:
  std::string name_;
};

/// Opens a file of a kind, which has that root, and reads it once through.
std::ifstream openChecked(const std::filesystem::path& name, const std::string& kind,
                          const std::string& root) {
  std::ifstream file = openFile(name);
  RootName found;
  reader::Parser parser(&found, false, nullptr);
  parseAll(file, name.string(), parser);
  if (found.get() != root) {
    throw Failure(badDocument, name.string() + ": this is no " + kind +
                                   " file: its outermost element is " +
                                   check::shortened(found.get()) + ", not " + root);
  }
  file.clear();
  if (!file.seekg(0)) {
    throw Failure(badDocument, name.string() + ": cannot be read twice: it is not a regular file");
  }
  return file;
}

}  // namespace

bool isModelName(const std::filesystem::path& name) {
  const std::filesystem::path extension = name.extension();
  return extension == ".jvx" || extension == ".JVX";
}

std::filesystem::path displayName(std::filesystem::path model) {
  return model.replace_extension(model.extension() == ".JVX" ? ".JVD" : ".jvd");
}

ModelFile::ModelFile(const std::filesystem::path& name)
    : model_(openChecked(name, "JVX", "jvx-model")) {
  const std::filesystem::path display = displayName(name);
  std::error_code unknown;  // whether it is there: opening it says why
  if (std::filesystem::exists(display, unknown) || unknown) {
    display_ = openChecked(display, "JVD", "jv-disp");
  }
}

}  // namespace vantry::zrd
