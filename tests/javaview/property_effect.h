// What each property of a primitive does to the text that is written for it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "minimal_document.h"
#include "vantry/plot/framework/property_list.h"

namespace vantry::javaview {

/// A piece of text that becomes another one. It is in the text exactly once; an empty `before`
/// is the whole text.
struct Edit {
  std::string before;
  std::string after;
};

/// The property with this value, in place of the one in the minimal document, changes the text by
/// the edits and in no other way.
struct PropertyEffect {
  base::Token property;
  std::string value;
  std::vector<Edit> edits;
};

/// Nothing is written any more.
inline const std::vector<Edit> vanishes{{"", ""}};

inline std::string edited(std::string text, const std::vector<Edit>& edits) {
  for (const auto& [before, after] : edits) {
    if (before.empty()) {
      text = after;
      continue;
    }
    const std::size_t at = text.find(before);
    EXPECT_NE(at, std::string::npos) << "not in the text: " << before;
    if (at == std::string::npos) continue;
    EXPECT_EQ(text.find(before, at + 1), std::string::npos) << "more than once: " << before;
    text.replace(at, before.size(), after);
  }
  return text;
}

/// The texts of all other words of an enumeration, or of one other value.
inline std::vector<std::string> otherValues(const plot::Property& property,
                                            const base::Variant& value) {
  std::vector<base::Variant> others;
  if (const auto flag = value.as<base::BoolVariant>()) {
    others.push_back(base::BoolVariant(!flag->get()));
  } else if (const auto number = value.as<base::LongVariant>()) {
    others.push_back(base::LongVariant(number->get() + 1));
  } else if (const auto real = value.as<base::DoubleVariant>()) {
    others.push_back(base::DoubleVariant(real->get() + 1));
  } else if (const auto color = value.as<plot::RGBAVariant>()) {
    others.push_back(plot::RGBAVariant(plot::RGBA(~color->get().word())));
  } else if (const auto p2 = value.as<plot::P2Variant>()) {
    others.push_back(plot::P2Variant(plot::P2{p2->get().x + 1, p2->get().y + 2}));
  } else if (const auto p3 = value.as<plot::P3Variant>()) {
    others.push_back(plot::P3Variant(plot::P3{p3->get().x + 1, p3->get().y + 2, p3->get().z + 3}));
  } else if (const auto font = value.as<plot::FontStyleVariant>()) {
    plot::FontStyle larger = font->get();
    ++larger.size;
    others.push_back(plot::FontStyleVariant(larger));
  } else if (const auto word = value.as<base::TokenVariant>()) {
    for (const base::Token other : property.allowedWords()) {
      if (other != word->get()) others.push_back(base::TokenVariant(other));
    }
  }
  std::vector<std::string> texts;
  for (const base::Variant& other : others) {
    std::ostringstream attribute;  // ` Name="value"`
    property.putXml(attribute, other);
    const std::string text = attribute.str();
    const std::size_t begin = text.find('"') + 1;
    texts.push_back(text.substr(begin, text.rfind('"') - begin));
  }
  EXPECT_FALSE(texts.empty()) << "no other value";
  return texts;
}

/// Converts the document with each of the effects, one at a time, and shows that they are what
/// happens. Shows also that no other property of the class changes anything: none can be left out.
template <class T>
void expectPropertyEffects(const MinimalDocument& base,
                           const std::vector<PropertyEffect>& effects) {
  const std::string text = convert<T>(base);
  const auto convertWith = [&](base::Token property, const std::string& value) {
    MinimalDocument changed = base;
    changed.attributes[property] = value;
    return convert<T>(changed);
  };

  for (const PropertyEffect& effect : effects) {
    SCOPED_TRACE(std::string(effect.property.str()) + " = " + effect.value);
    const std::string expected = edited(text, effect.edits);
    EXPECT_NE(expected, text) << "no effect";
    EXPECT_EQ(convertWith(effect.property, effect.value), expected);
  }

  const base::Ref<plot::PlotDocument> document(new plot::PlotDocument);
  const base::Ref<T> element(new T(document.get()));
  for (const auto& [name, value] : base.attributes) {
    element->setAttributeFromString(name, value.c_str());
  }
  for (const plot::Property& property : T::propertyList().properties()) {
    const base::Token name = property.name();
    const auto isThisOne = [name](const PropertyEffect& effect) { return effect.property == name; };
    if (std::ranges::any_of(effects, isThisOne)) continue;
    const base::Variant current =
        element->hasAttribute(name) ? element->getAttribute(name) : property.defaultVariant();
    for (const std::string& value : otherValues(property, current)) {
      SCOPED_TRACE(std::string(name.str()) + " = " + value);
      EXPECT_EQ(convertWith(name, value), text) << "an effect where none is known";
    }
  }
}

}  // namespace vantry::javaview
