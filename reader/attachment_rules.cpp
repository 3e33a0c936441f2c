#include "vantry/reader/attachment_rules.h"

#include <initializer_list>

#include "vantry/base/word_table.h"
#include "vantry/plot/framework/grammar.h"

namespace vantry::reader {

using base::Token;
using base::WordId;

namespace {

struct RequiredRow {
  Required required;
  std::initializer_list<WordId> elements;
};

constexpr RequiredRow requiredRows[] = {
    {Required::typeToken,
     {WordId::Lines3d, WordId::Obj2d, WordId::Obj3d, WordId::ObjStyle, WordId::ObjType,
      WordId::Surf3d, WordId::Transform2d, WordId::Transform3d}},
    {Required::optToken, {WordId::ColorFunc, WordId::Expr, WordId::ExprSeq}},
    {Required::optTokenAndVal, {WordId::Prop}},
    {Required::nameText, {WordId::PropCat}},
    {Required::domToken, {WordId::PropInfo}},
};

class Rules {
 public:
  [[gnu::noinline]] Rules();  // inlined into its only caller it would slow down each look-up

  const AttachmentRule& operator[](WordId element) const { return rules_[element]; }

 private:
  base::WordTable<AttachmentRule> rules_;
};

// What may be there once takes the place of what was there before, unless it is plain content of
// some other element.
Rules::Rules() {
  for (const Token parent : base::wordTokens) {
    for (const Token option : plot::allowedOptionsOf(parent)) rules_[option].place = Place::unique;
  }
  for (const Token parent : base::wordTokens) {
    for (const Token child : plot::contentOf(parent)) rules_[child].place = Place::append;
    if (plot::takesText(parent)) rules_[parent].content = Content::text;
  }
  rules_[WordId::Canvas].place = Place::root;
  for (const WordId element : {WordId::IExpr, WordId::VExpr}) {
    rules_[element].place = Place::positional;
  }
  for (const WordId element : {WordId::ColorArray2d, WordId::DensityArray2d}) {
    rules_[element].content = Content::words;
  }
  for (const RequiredRow& row : requiredRows) {
    for (const WordId element : row.elements) rules_[element].required = row.required;
  }
}

}  // namespace

const AttachmentRule& attachmentRule(WordId element) {
  static const Rules rules;
  return rules[element];
}

}  // namespace vantry::reader
