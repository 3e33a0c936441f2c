// The namespaces of a document, and the way from an element's name to its own.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vantry::reader {

/// A name in two parts.
struct SplitName {
  const std::string* space = nullptr;  ///< the one copy of its namespace; null if it has none
  const char* localName = "";

  /// Empty if there is none.
  std::string_view namespaceUri() const {
    return space ? std::string_view(*space) : std::string_view();
  }
};

/// Splits names as expat gives them: namespace, separator, local part.
///
/// A namespace is as long as its document likes, and expat repeats it in each name. What it repeats
/// is one text for each declaration, at an address that stays until the declaration ends or the
/// text is moved for a longer local part. So a namespace is read once for each address.
class Namespaces {
 public:
  /// Comes between namespace and local part. No document can hold it.
  static constexpr char separator = '\x01';

  /// A declaration begins to hold; null is that of no namespace.
  void declare(const char* uri);

  /// The declaration that was made last ends.
  void endDeclaration();

  /// Splits the name of an element. Each element is to be split as it starts, since its name may
  /// have moved a text. The parts live until the next change of declarations.
  SplitName splitElement(const char* name);

  /// Splits the name of an attribute, which has no address of its own.
  SplitName splitAttribute(const char* name);

  /// Whether there was a namespace beyond the usual size.
  bool hasLongOnes() const { return hasLongOnes_; }

  /// The size of the namespace that the name of an attribute repeats; 0 for one of a usual size.
  std::size_t sizeOfLongNamespace(const char* name) const;

 private:
  /// Where expat keeps the texts of declarations, by the size of a local part for which there is
  /// room behind each.
  using Addresses = std::multimap<std::size_t, const char*>;

  /// What is known of a namespace beside its text.
  struct Use {
    std::size_t declarations = 0;  // that hold now
    Addresses addresses;
  };
  using Uses = std::map<std::string, Use, std::less<>>;

  SplitName splitNewElement(const char* name);
  Uses::value_type& useOf(std::string_view uri);
  void forgetAddresses(Addresses& addresses, Addresses::const_iterator end);
  void rememberAddress(const char* name, std::size_t localSize, Uses::value_type& use);

  Uses uses_;
  std::vector<Uses::value_type*> declared_;  // null for that of no namespace
  std::unordered_map<const char*, const std::string*> byAddress_;
  const char* lastAddress_ = nullptr;  // most documents have one namespace
  const std::string* lastSpace_ = nullptr;
  bool hasLongOnes_ = false;
};

}  // namespace vantry::reader
