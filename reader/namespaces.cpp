#include "vantry/reader/namespaces.h"

#include <cstring>
#include <limits>

namespace vantry::reader {

void Namespaces::declare(const char* uri) {
  declared_.push_back(nullptr);
  if (!uri) return;
  declared_.back() = &useOf(uri);
  ++declared_.back()->second.declarations;
}

void Namespaces::endDeclaration() {
  Uses::value_type* const ended = declared_.back();
  declared_.pop_back();
  if (!ended) return;
  --ended->second.declarations;
  forgetAddresses(ended->second, std::numeric_limits<std::size_t>::max());
}

SplitName Namespaces::splitElement(const char* name) {
  if (name != lastAddress_) {
    const auto known = byAddress_.find(name);
    if (known == byAddress_.end()) return splitNewElement(name);
    lastAddress_ = name;
    lastSpace_ = known->second;
  }
  return {lastSpace_, name + lastSpace_->size() + 1};
}

SplitName Namespaces::splitNewElement(const char* name) {
  const char* const end = std::strrchr(name, separator);
  if (!end) return {nullptr, name};
  Uses::value_type& use = useOf({name, end});
  const bool isDeclared = use.second.declarations > 0;  // that of the prefix "xml" is not
  if (isDeclared) rememberAddress({name, std::strlen(end + 1)}, use);
  return {&use.first, end + 1};
}

SplitName Namespaces::splitAttribute(const char* name) {
  const char* const end = std::strrchr(name, separator);
  if (!end) return {nullptr, name};
  return {&useOf({name, end}).first, end + 1};
}

Namespaces::Uses::value_type& Namespaces::useOf(std::string_view uri) {
  auto place = uses_.lower_bound(uri);
  if (place == uses_.end() || place->first != uri) place = uses_.emplace_hint(place, uri, Use());
  return *place;
}

void Namespaces::forgetAddresses(Use& use, std::size_t smallerThan) {
  std::erase_if(use.addresses, [=, this](const Address& address) {
    return address.localSize < smallerThan && byAddress_.erase(address.name) > 0;
  });
  lastAddress_ = nullptr;
}

// A text is moved when it lacks the room for a local part. Nothing says which one was moved to the
// new address, but it is none that had room for as much.
void Namespaces::rememberAddress(Address address, Uses::value_type& use) {
  forgetAddresses(use.second, address.localSize);
  use.second.addresses.push_back(address);
  byAddress_.emplace(address.name, &use.first);
}

}  // namespace vantry::reader
