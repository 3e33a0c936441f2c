#include "base/token.h"

#include "base/token_table.h"

namespace Ubase {

Token::Token(const char* text, bool copy)
    : str_(text ? TokenTable::instance().intern(text, copy) : nullptr) {}

Token Token::find(const char* text) {
  return text ? Token(TokenTable::instance().find(text)) : Token();
}

void Token::internAll(const char* const* texts, bool copy) {
  if (!texts) return;
  TokenTable& table = TokenTable::instance();
  const std::lock_guard lock(table.mutex());
  for (; *texts; ++texts) table.intern(*texts, copy);
}

}  // namespace Ubase
