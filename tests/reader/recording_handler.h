// A handler that records its calls.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "vantry/reader/simple_data_handler.h"
#include "vantry/reader/xml_parser.h"

/// Knows the names that begin with a small letter, gives them codes in the order of their first
/// appearance and logs each call. Text is collected in the elements named "text".
class RecordingHandler : public vantry::reader::SimpleDataHandler {
 public:
  std::string log;

  void startElement(std::uint32_t namespaceId, std::uint32_t elementId,
                    const vantry::reader::AttributeList& attributes) override {
    log.append("<").append(name(namespaceId, elementId));
    for (const vantry::reader::Attribute& attribute : attributes) {
      log.append(" ").append(name(attribute.namespaceId, attribute.attributeId));
      log.append("=").append(attribute.value);
    }
    log += ">";
    if (names_[elementId] == "text") collectText();
  }

  void endElement(std::uint32_t namespaceId, std::uint32_t elementId) override {
    if (names_[elementId] == "text") log.append("'").append(text()).append("'");
    log.append("</").append(name(namespaceId, elementId)).append(">");
  }

  bool lookupElement(std::string_view namespaceUri, const char* localName,
                     std::uint32_t& namespaceId, std::uint32_t& elementId) override {
    return lookup(namespaceUri, localName, namespaceId, elementId);
  }

  bool lookupAttribute(std::string_view namespaceUri, const char* localName,
                       std::uint32_t& namespaceId, std::uint32_t& attributeId) override {
    return lookup(namespaceUri, localName, namespaceId, attributeId);
  }

  void parseFailed() override { log += "failed;"; }

 private:
  bool lookup(std::string_view namespaceUri, const char* localName, std::uint32_t& namespaceId,
              std::uint32_t& nameId) {
    if (*localName < 'a') {
      log.append("?").append(localName).append(";");
      return false;
    }
    namespaceId = namespaceUri.empty() ? 0 : codeOf(namespaceUri);
    nameId = codeOf(localName);
    return true;
  }

  std::uint32_t codeOf(std::string_view text) {
    for (const auto& [code, known] : names_) {
      if (known == text) return code;
    }
    const auto code = static_cast<std::uint32_t>(names_.size() + 1);
    names_[code] = text;
    return code;
  }

  std::string name(std::uint32_t namespaceId, std::uint32_t nameId) {
    if (!namespaceId) return names_[nameId];
    return std::string("{").append(names_[namespaceId]).append("}").append(names_[nameId]);
  }

  std::map<std::uint32_t, std::string> names_;
};

/// Feeds `document` in blocks of `blockSize` bytes and an empty final one, up to the first failure.
inline bool parseInBlocks(vantry::reader::Parser& parser, std::string_view document,
                          std::size_t blockSize) {
  for (std::size_t at = 0; at < document.size(); at += blockSize) {
    const std::string_view block = document.substr(at, blockSize);
    if (!parser.parse(block.data(), static_cast<int>(block.size()), false)) return false;
  }
  return parser.parse("", 0, true);
}
