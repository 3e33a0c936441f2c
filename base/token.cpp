#include "vantry/base/token.h"

#include "vantry/base/token_table.h"
#include "vantry/base/vocabulary.h"

namespace vantry::base {

namespace {

// Words of the vocabulary are known without the table and its lock.
const char* internedText(const char* text, bool copy) {
  const WordId word = findWord(text);
  return word == WordId::none ? TokenTable::instance().intern(text, copy) : tokenOf(word).str();
}

}  // namespace

Token::Token(const char* text, bool copy) : str_(text ? internedText(text, copy) : nullptr) {}

Token Token::find(const char* text) {
  if (!text) return Token();
  const WordId word = findWord(text);
  return word == WordId::none ? Token(TokenTable::instance().find(text)) : tokenOf(word);
}

void Token::internAll(const char* const* texts, bool copy) {
  if (!texts) return;
  const std::lock_guard lock(TokenTable::instance().mutex());
  for (; *texts; ++texts) Token(*texts, copy);
}

Token StaticToken::intern() const {
  const Token token(text_, false);
  interned_.store(token.str(), std::memory_order_release);
  return token;
}

}  // namespace vantry::base
