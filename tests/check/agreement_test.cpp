// Where the check finds no error, a document is converted.

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "../locale_guard.h"
#include "made_document.h"
#include "vantry/check/check.h"
#include "vantry/javaview/jvd_writer.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/document.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace {

namespace fs = std::filesystem;
using namespace vantry;

bool hasErrors(const std::string& document) {
  return std::ranges::count(check::check(document), check::Severity::error,
                            &check::Diagnostic::severity) > 0;
}

/// Reads and writes a document as vantry does. The reason why it cannot, or nothing.
std::string failureToConvert(std::string_view text) {
  const base::Ref<plot::PlotDocument> document(new plot::PlotDocument);
  std::string failure;
  try {
    reader::ZrdParserHandler handler(document.get(), true, nullptr);
    reader::Parser parser(&handler, true, nullptr);
    for (bool isLast = false; !isLast;) {
      const std::string_view block = text.substr(0, 512);
      text.remove_prefix(block.size());
      isLast = block.size() < 512;
      if (!parser.parse(block.data(), static_cast<int>(block.size()), isLast)) {
        failure = "not well formed";
      }
    }
    std::ostream nowhere(nullptr);
    javaview::JVXWriter(document.get()).write(nowhere, plot::nan);
    javaview::JVDWriter(document.get()).write(nowhere, plot::nan);
  } catch (const std::exception& reason) {
    failure = reason.what();
  }
  document->tearDown();
  return failure;
}

void expectAgreement(const std::string& document) {
  const std::string failure = failureToConvert(document);
  if (!failure.empty()) {
    EXPECT_TRUE(hasErrors(document)) << failure << '\n' << document;
  }
}

std::vector<std::string> examples() {
  std::vector<std::string> texts;
  for (const char* folder : {"examples", "docs/examples", "tests/check/cases"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(VANTRY_SOURCE_DIR) / folder)) {
      if (entry.path().extension() != ".zrd") continue;
      std::ifstream in(entry.path(), std::ios::binary);
      texts.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
  }
  std::ranges::sort(texts);
  return texts;
}

TEST(Agreement, OnExamplesAndCases) {
  for (const std::string& document : examples()) expectAgreement(document);
}

TEST(AgreementInLarge, OnMadeDocuments) {
  int withoutError = 0;
  for (unsigned seed = 0; seed < 3000; ++seed) {
    DocumentMaker maker(seed);
    const std::string document = maker.make();
    expectAgreement(document);
    expectAgreement(maker.withMistake(document));
    if (!hasErrors(document)) ++withoutError;
  }
  EXPECT_GT(withoutError, 1000);
}

TEST(AgreementInLarge, OnMadeDocumentsInALocaleOfAscii) {
  const LocaleGuard ascii(LC_CTYPE, "C");
  for (unsigned seed = 0; seed < 1000; ++seed) expectAgreement(DocumentMaker(seed).make());
}

TEST(AgreementInLarge, OnExamplesWithMistakes) {
  std::vector<std::string> texts = examples();
  std::erase_if(texts,
                [](const std::string& text) { return text.size() > 20'000 || text.empty(); });
  for (unsigned seed = 0; seed < 4000; ++seed) {
    expectAgreement(DocumentMaker(seed).withMistake(texts[seed % texts.size()]));
  }
}

}  // namespace
