#include "vantry/base/token.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <new>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "vantry/base/token_table.h"
#include "vantry/base/vocabulary.h"
#include "vantry/base/word_table.h"

namespace {

using namespace vantry::base;

bool refuseToDuplicate = false;

// A static initialiser of this file may use the vocabulary, whatever is initialised first.
const Token radiusAtStart = Word::Radius;
const Token radiusByIdAtStart = tokenById(static_cast<int>(WordId::Radius));
const Token radiusByTextAtStart("Radius", false);

constinit const StaticToken beyondTheVocabulary("a constant beyond the vocabulary");
const Token beyondTheVocabularyAtStart = beyondTheVocabulary;

}  // namespace

// Found before that of the C library, which it calls unless a test wants memory to be short.
extern "C" char* strdup(const char* text) noexcept {
  static const auto duplicate =
      reinterpret_cast<char* (*)(const char*)>(dlsym(RTLD_NEXT, "strdup"));
  return refuseToDuplicate ? nullptr : duplicate(text);
}

namespace {

TEST(Token, OfNullIsTheNullToken) {
  EXPECT_EQ(Token().str(), nullptr);
  EXPECT_EQ(Token(nullptr, true).str(), nullptr);
  EXPECT_EQ(Token(nullptr, false).str(), nullptr);
  EXPECT_EQ(Token(nullptr, true), Token());
  EXPECT_FALSE(Token());
  EXPECT_TRUE(Word::Radius);
  EXPECT_NE(Word::Radius, Token());
}

TEST(Token, OfOneTextIsOneToken) {
  const Token first("Radius", true);
  const Token second("Radius", true);
  const Token third("Radius", false);
  EXPECT_EQ(first, second);
  EXPECT_EQ(first, third);
  EXPECT_EQ(first.str(), second.str());
  EXPECT_EQ(first, Word::Radius);
  EXPECT_EQ(first, tokenById(static_cast<int>(WordId::Radius)));
  EXPECT_NE(first, Token("radius", true));
  EXPECT_STREQ(Token("radius", true).str(), "radius");
}

TEST(Token, OfTheVocabularyIsReadyForStaticInitialisers) {
  EXPECT_EQ(radiusAtStart, Word::Radius);
  EXPECT_EQ(radiusByIdAtStart, Word::Radius);
  EXPECT_EQ(radiusByTextAtStart, Word::Radius);
}

TEST(StaticToken, IsReadyForStaticInitialisers) {
  EXPECT_STREQ(beyondTheVocabularyAtStart.str(), "a constant beyond the vocabulary");
  EXPECT_EQ(beyondTheVocabularyAtStart, beyondTheVocabulary);
  EXPECT_EQ(Token("a constant beyond the vocabulary", true), beyondTheVocabulary);
}

TEST(StaticToken, IsTheTokenOfATextThatWasInternedBefore) {
  const Token earlier("a text from earlier on", true);
  static constinit const StaticToken constant("a text from earlier on");
  EXPECT_EQ(constant, earlier);
  EXPECT_EQ(constant, earlier) << "and is so the second time";
}

TEST(Token, OfTheVocabularyNeedsNoTable) {
  const std::int32_t count = TokenTable::instance().count();
  for (int id = 1; id <= wordCount; ++id) {
    EXPECT_EQ(Token(std::string(tokenById(id).str()).c_str(), true), tokenById(id));
  }
  EXPECT_EQ(TokenTable::instance().count(), count);
}

TEST(Token, KeepsItsTextWhenTheBufferChanges) {
  char buffer[] = "a temporary text";
  const Token token(buffer, true);
  std::memset(buffer, 'x', sizeof(buffer) - 1);
  EXPECT_STREQ(token.str(), "a temporary text");
  EXPECT_EQ(token, Token("a temporary text", true));
}

TEST(Token, OfALiteralIsTheLiteralItself) {
  static const char literal[] = "a text of static lifetime";
  EXPECT_EQ(Token(literal, false).str(), literal);
  EXPECT_EQ(Token("a text of static lifetime", true).str(), literal);
}

TEST(Token, OfTheVocabularyIsOrderedByTheText) {
  for (int id = 2; id <= wordCount; ++id) EXPECT_TRUE(tokenById(id - 1) < tokenById(id)) << id;
}

TEST(Token, IsFoundOnlyIfItWasInterned) {
  const std::int32_t count = TokenTable::instance().count();
  EXPECT_EQ(Token::find("never interned before"), Token());
  EXPECT_EQ(Token::find(nullptr), Token());
  EXPECT_EQ(Token::find(""), Token());
  EXPECT_EQ(TokenTable::instance().count(), count);
  EXPECT_EQ(Token::find("Center"), Word::Center);
  const Token token("interned before", true);
  EXPECT_EQ(Token::find("interned before"), token);
  EXPECT_EQ(TokenTable::instance().count(), count + 1);
}

TEST(Token, IsInternedByTheArray) {
  Token::internAll(nullptr, true);
  const char* const none[] = {nullptr};
  Token::internAll(none, true);
  const char* const texts[] = {"first of an array", "Radius", "last of an array", nullptr};
  const std::int32_t count = TokenTable::instance().count();
  Token::internAll(texts, true);
  EXPECT_EQ(TokenTable::instance().count(), count + 2);
  EXPECT_STREQ(Token::find("first of an array").str(), "first of an array");
  EXPECT_NE(Token::find("first of an array").str(), texts[0]);
  EXPECT_TRUE(Token::find("last of an array"));
}

TEST(Token, IsOrderedByItsAddress) {
  std::vector<Token> tokens;
  for (int id = 0; id <= wordCount; ++id) tokens.push_back(tokenById(id));
  std::sort(tokens.begin(), tokens.end());
  EXPECT_TRUE(std::is_sorted(tokens.begin(), tokens.end(),
                             [](Token a, Token b) { return std::less<>()(a.str(), b.str()); }));
  EXPECT_FALSE(Word::Radius < Word::Radius);
  EXPECT_TRUE(Token() < Word::Radius);
}

TEST(Token, IsTheSameOnAllThreads) {
  constexpr int texts = 500;
  std::array<std::vector<Token>, 4> seen;
  std::vector<std::thread> threads;
  for (std::vector<Token>& tokens : seen) {
    threads.emplace_back([&tokens] {
      for (int i = 0; i < texts; ++i) {
        tokens.push_back(Token(("text for threads " + std::to_string(i)).c_str(), true));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::vector<Token>& tokens : seen) EXPECT_EQ(tokens, seen[0]);
}

// ---- The table ----

TEST(TokenTable, IsEmptyUntilTheFirstText) {
  TokenTable table;
  EXPECT_EQ(table.count(), 0);
  EXPECT_EQ(table.capacity(), 0);
  EXPECT_EQ(table.find("anything"), nullptr);
  EXPECT_EQ(table.capacity(), 0);
  table.intern("anything", false);
  EXPECT_EQ(table.count(), 1);
  EXPECT_EQ(table.capacity(), 256);
}

TEST(TokenTable, DoublesWhenItIsFullAndMovesNoText) {
  TokenTable table;
  std::vector<const char*> interned;
  for (int i = 0; i < 256; ++i) interned.push_back(table.intern(std::to_string(i).c_str(), true));
  EXPECT_EQ(table.capacity(), 256);
  table.intern("the 257th text", true);
  EXPECT_EQ(table.capacity(), 512);
  EXPECT_EQ(table.count(), 257);
  for (int i = 0; i < 256; ++i) {
    const std::string text = std::to_string(i);
    EXPECT_STREQ(interned[static_cast<std::size_t>(i)], text.c_str());
    EXPECT_EQ(table.find(text.c_str()), interned[static_cast<std::size_t>(i)]);
  }
}

TEST(TokenTable, FindsEveryTextInEveryOrder) {
  TokenTable table;
  std::set<std::string> texts;
  for (unsigned i = 0; i < 3000; ++i) {
    const std::string text = std::to_string(i * 2654435761u % 5000u);
    EXPECT_EQ(table.find(text.c_str()) != nullptr, texts.contains(text));
    table.intern(text.c_str(), true);
    texts.insert(text);
    EXPECT_EQ(table.count(), std::ssize(texts));
  }
  for (const std::string& text : texts) EXPECT_STREQ(table.find(text.c_str()), text.c_str());
}

TEST(TokenTable, DistinguishesTextsThatBeginAlike) {
  TokenTable table;
  for (const char* text : {"Line", "LineWidth", "Lin", "line", "", "\xC3\xA9"}) {
    EXPECT_EQ(table.find(text), nullptr);
    EXPECT_EQ(table.intern(text, false), text);
  }
  EXPECT_EQ(table.count(), 6);
}

TEST(TokenTable, StaysAsItWasWhenATextCannotBeCopied) {
  TokenTable table;
  table.intern("present", false);
  refuseToDuplicate = true;
  EXPECT_THROW(table.intern("absent", true), std::bad_alloc);
  EXPECT_THROW(Token("a text that finds no memory", true), std::bad_alloc);
  EXPECT_STREQ(table.intern("present", true), "present");
  refuseToDuplicate = false;

  EXPECT_EQ(table.count(), 1);
  EXPECT_EQ(table.find("absent"), nullptr);
  EXPECT_FALSE(Token::find("a text that finds no memory"));
  std::thread([&table] { EXPECT_EQ(table.find("present"), std::string("present")); }).join();
  EXPECT_STREQ(table.intern("absent", true), "absent");
  EXPECT_EQ(table.count(), 2);
}

TEST(TokenTable, LetsItsOwnThreadInAgain) {
  const std::lock_guard outer(TokenTable::instance().mutex());
  EXPECT_EQ(Token::find("Radius"), Word::Radius);
}

// ---- The vocabulary ----

TEST(Vocabulary, GivesTheNumberOfATokenAndNoneForAllOthers) {
  for (int id = 1; id <= wordCount; ++id) {
    EXPECT_EQ(wordOf(tokenById(id)), static_cast<WordId>(id));
    EXPECT_EQ(wordOf(Token(std::string(tokenById(id).str()).c_str(), true)),
              static_cast<WordId>(id));
  }
  for (const Token other :
       {Token(), Token("", true), Token("#text", false), Token("radius", true)}) {
    EXPECT_EQ(wordOf(other), WordId::none);
  }
}

TEST(WordTable, HasAValueForEachWordAndOneForAllThatIsNone) {
  WordTable<int> table;
  for (int id = 0; id <= wordCount; ++id) EXPECT_EQ(table[static_cast<WordId>(id)], 0) << id;

  for (int id = 1; id <= wordCount; ++id) table[tokenById(id)] = id;
  const WordTable<int>& values = table;
  for (int id = 1; id <= wordCount; ++id) {
    EXPECT_EQ(values[static_cast<WordId>(id)], id);
    EXPECT_EQ(values[tokenById(id)], id);
  }
  EXPECT_EQ(values[Token()], 0);
  EXPECT_EQ(values[Token("radius", true)], 0);
}

TEST(WordTable, NumbersTheRowsOfATable) {
  struct Row {
    Token word;
    int value;
  };
  constexpr std::array rows = {Row{Word::Radius, 7}, Row{Word::Absolute, 8}, Row{Word::True, 9}};
  constexpr WordTable<std::uint8_t> numbers = rowNumbers(rows, &Row::word);
  for (int id = 0; id <= wordCount; ++id) {
    const std::size_t number = numbers[static_cast<WordId>(id)];
    EXPECT_TRUE(number == 0 || rows.at(number - 1).word == tokenById(id)) << id;
  }
  EXPECT_EQ(numbers[Word::Radius], 1);
  EXPECT_EQ(numbers[Word::Absolute], 2);
  EXPECT_EQ(numbers[Word::True], 3);
  EXPECT_EQ(numbers[Word::False], 0);
  EXPECT_EQ(numbers[Token()], 0);

  const std::vector<Row> tooMany(256, Row{Word::Radius, 0});
  EXPECT_ANY_THROW(rowNumbers(tooMany, &Row::word));
}

TEST(WordTable, NumbersOneRowOfAWordOnly) {
  const std::array twice = {Word::Radius, Word::Absolute, Word::Radius};
  EXPECT_ANY_THROW(rowNumbers(twice, std::identity()));
  const std::array nameless = {Word::Radius, Token()};
  EXPECT_ANY_THROW(rowNumbers(nameless, std::identity()));
}

TEST(Vocabulary, HasItsWordsInTheOrderOfTheirNumbers) {
  for (int id = 2; id <= wordCount; ++id) {
    EXPECT_LT(std::strcmp(tokenById(id - 1).str(), tokenById(id).str()), 0) << id;
  }
  EXPECT_STREQ(tokenById(1).str(), "Absolute");
  EXPECT_STREQ(tokenById(2).str(), "AdaptiveMesh");
  EXPECT_STREQ(tokenById(wordCount - 3).str(), "ZXRatio");
  EXPECT_STREQ(tokenById(wordCount - 2).str(), "false");
  EXPECT_STREQ(tokenById(wordCount - 1).str(), "id");
  EXPECT_STREQ(tokenById(wordCount).str(), "true");
}

TEST(Vocabulary, HasNoWordOutsideOfItsNumbers) {
  EXPECT_EQ(tokenById(0), Token());
  EXPECT_EQ(tokenById(wordCount + 1), Token());
  EXPECT_EQ(tokenById(-1), Token());
  EXPECT_EQ(tokenById(1'000'000), Token());
}

TEST(Vocabulary, SaysWhatItsWordsAre) {
  const auto isOfKinds = [](WordId word, bool isElement, bool isAttribute) {
    return isElementWord(word) == isElement && isAttributeWord(word) == isAttribute;
  };
  EXPECT_TRUE(isOfKinds(WordId::Surf3d, true, false));
  EXPECT_TRUE(isOfKinds(WordId::LineWidth, false, true));
  EXPECT_TRUE(isOfKinds(WordId::Id, false, true));
  EXPECT_TRUE(isOfKinds(WordId::TitlePositionX, true, true));
  EXPECT_TRUE(isOfKinds(WordId::Absolute, false, false));
  EXPECT_TRUE(isOfKinds(WordId::True, false, false));
  EXPECT_TRUE(isOfKinds(WordId::P2, false, false)) << "data, and no class of the model";
  EXPECT_TRUE(isOfKinds(WordId::none, false, false));
}

TEST(Vocabulary, NumbersItsTokensWhenItCompiles) {
  static_assert(wordOf(Word::Absolute) == WordId::Absolute);
  static_assert(wordOf(Word::True) == WordId::True);
  static_assert(wordOf(Token()) == WordId::none);
  EXPECT_EQ(wordOf(Word::True), WordId::True);
}

TEST(Vocabulary, NamesItsTokens) {
  EXPECT_STREQ(Word::Surf3d.str(), "Surf3d");
  EXPECT_STREQ(Word::True.str(), "true");
  EXPECT_STREQ(Word::False.str(), "false");
  EXPECT_STREQ(Word::Id.str(), "id");
  EXPECT_EQ(tokenById(static_cast<int>(WordId::Surf3d)), Word::Surf3d);
  EXPECT_EQ(tokenById(static_cast<int>(WordId::none)), Token());
}

TEST(Vocabulary, DistinguishesSimilarWords) {
  EXPECT_NE(Word::BaseLine, Word::Baseline);
  EXPECT_NE(Word::LineColorFunc, Word::LineColorFunction);
  EXPECT_NE(Word::Point, Word::Points);
  EXPECT_STREQ(Word::BaseLine.str(), "BaseLine");
  EXPECT_STREQ(Word::Baseline.str(), "Baseline");
  const std::set<Token> focalPoints = {Word::FocalPoint, Word::FocalPointX, Word::FocalPointY,
                                       Word::FocalPointZ};
  EXPECT_EQ(focalPoints.size(), 4u);
}

TEST(Vocabulary, FindsTheNumberOfEachWord) {
  for (int id = 1; id <= wordCount; ++id) {
    EXPECT_EQ(findWord(tokenById(id).str()), static_cast<WordId>(id));
    EXPECT_EQ(Token(tokenById(id).str(), true), tokenById(id));
  }
}

TEST(Vocabulary, FindsNothingElse) {
  for (const char* text : {"", "a", "surf3d", "Surf3", "Surf3dd", "FALSE", "Radius ", " Radius",
                           "AVeryLongTextThatNoWordOfTheFormatComesNearTo"}) {
    EXPECT_EQ(findWord(text), WordId::none) << text;
  }
}

}  // namespace
