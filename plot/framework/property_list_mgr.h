// The table of the properties of an element class.
#pragma once

#include <atomic>
#include <iosfwd>
#include <memory>
#include <utility>
#include <vector>

#include "vantry/base/word_table.h"
#include "vantry/plot/framework/property_impl.h"

namespace vantry::plot {

/// The properties of a class, found by name. A class has one manager, a constant-initialised object
/// of static lifetime; fill() builds the table at its first use, by whichever thread that is. The
/// table is never given up, so that it can be used before and after main() too.
class PropertyListMgr {
 public:
  constexpr PropertyListMgr() = default;
  PropertyListMgr(const PropertyListMgr&) = delete;
  PropertyListMgr& operator=(const PropertyListMgr&) = delete;

  /// The property of that name, or null.
  const Property* find(base::Token name) { return table().byWord[name]; }

  /// All properties, in the order of their tokens.
  using Entries = std::vector<std::pair<base::Token, std::unique_ptr<const Property>>>;
  const Entries& entries() { return table().entries; }

  /// Gives the members of a new element their first values.
  void initialise(PlotElement& element);

  /// Resolves each inherited member that is not set, through the element's style chain.
  void inheritAll(PlotElement& element);

  /// Removes each local value that the element would inherit anyway and can do without.
  void dropAllInherited(PlotElement& element);

  /// Whether the attributes that the element has can be written.
  bool canBeWritten(const PlotElement& element);

  /// Writes the attributes that the element has.
  void putXml(std::ostream& out, const PlotElement& element);
  virtual void putCmd(CmdWriter& writer, const PlotElement& element);

 protected:
  ~PropertyListMgr() = default;

  /// Adds the properties, one line each, with the operations below. Their names are words of the
  /// vocabulary, and their default texts are permanent, as all documents share them.
  virtual void fill() = 0;

  void add(std::unique_ptr<const Property> property);

  // A property in a member: name, default, bit, member.
  template <class Type, class Element>
  void mandatory(base::Token name, typename Type::Value defaultValue, std::uint32_t bit,
                 Stored<typename Type::Value> Element::*member) {
    add(std::make_unique<MandatoryPropertyImpl<Element, Type>>(name, std::move(defaultValue), bit,
                                                               member));
  }
  template <class Type, class Element>
  void optional(base::Token name, typename Type::Value defaultValue, std::uint32_t bit,
                Stored<typename Type::Value> Element::*member) {
    add(std::make_unique<OptionalPropertyImpl<Element, Type>>(name, std::move(defaultValue), bit,
                                                              member));
  }
  template <class Type, class Element>
  void inherited(base::Token name, typename Type::Value defaultValue, std::uint32_t bit,
                 Stored<typename Type::Value> Element::*member) {
    add(std::make_unique<InheritedPropertyImpl<Element, Type>>(name, std::move(defaultValue), bit,
                                                               member));
  }

  // A property in the attribute list: name, default.
  template <class Type>
  void mandatory(base::Token name, typename Type::Value defaultValue) {
    add(std::make_unique<MandatoryListPropertyImpl<Type>>(name, std::move(defaultValue)));
  }
  template <class Type>
  void optional(base::Token name, typename Type::Value defaultValue) {
    add(std::make_unique<OptionalListPropertyImpl<Type>>(name, std::move(defaultValue)));
  }
  template <class Type>
  void inherited(base::Token name, typename Type::Value defaultValue) {
    add(std::make_unique<InheritedListPropertyImpl<Type>>(name, std::move(defaultValue)));
  }

 private:
  struct Table {
    Entries entries;
    base::WordTable<const Property*> byWord;  // the entries again
    std::vector<const Property*> inherited;   // those of them that inherit
    std::vector<const Property*> notInherited;
  };

  const Table& table() {
    const Table* built = built_.load(std::memory_order_acquire);
    return built ? *built : build();
  }
  const Table& build();

  std::atomic<const Table*> built_ = nullptr;
  Table* underWay_ = nullptr;  // what fill() adds to
};

/// The property of that name in the first of the lists that has it, or null.
template <class... Lists>
const Property* findIn(base::Token name, Lists&... lists) {
  const Property* found = nullptr;
  (void)((found = lists.find(name)) || ...);
  return found;
}

}  // namespace vantry::plot
