#include "vantry/reader/namespaces.h"

#include <cstring>

namespace vantry::reader {

namespace {

/// Names may repeat a namespace up to this size as often as they like.
constexpr std::size_t usualSize = 256;

}  // namespace

void Namespaces::declare(const char* uri) {
  declared_.push_back(nullptr);
  if (!uri) return;
  declared_.back() = &useOf(uri);
  ++declared_.back()->second.declarations;
  hasLongOnes_ |= declared_.back()->first.size() > usualSize;
}

void Namespaces::endDeclaration() {
  Uses::value_type* const ended = declared_.back();
  declared_.pop_back();
  if (!ended) return;
  --ended->second.declarations;
  forgetAddresses(ended->second.addresses, ended->second.addresses.end());
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
  if (isDeclared) rememberAddress(name, std::strlen(end + 1), use);
  return {&use.first, end + 1};
}

SplitName Namespaces::splitAttribute(const char* name) {
  const char* const end = std::strrchr(name, separator);
  if (!end) return {nullptr, name};
  return {&useOf({name, end}).first, end + 1};
}

std::size_t Namespaces::sizeOfLongNamespace(const char* name) const {
  const char* const end = std::strrchr(name, separator);
  const std::size_t size = end ? static_cast<std::size_t>(end - name) : 0;
  return size > usualSize ? size : 0;
}

Namespaces::Uses::value_type& Namespaces::useOf(std::string_view uri) {
  auto place = uses_.lower_bound(uri);
  if (place == uses_.end() || place->first != uri) place = uses_.emplace_hint(place, uri, Use());
  return *place;
}

void Namespaces::forgetAddresses(Addresses& addresses, Addresses::const_iterator end) {
  for (auto address = addresses.cbegin(); address != end; ++address) {
    byAddress_.erase(address->second);
  }
  addresses.erase(addresses.cbegin(), end);
  lastAddress_ = nullptr;
}

// A text is moved when it lacks the room for a local part. Nothing says which one was moved to the
// new address, but it is none that had room for as much.
void Namespaces::rememberAddress(const char* name, std::size_t localSize, Uses::value_type& use) {
  Addresses& addresses = use.second.addresses;
  forgetAddresses(addresses, addresses.lower_bound(localSize));
  addresses.emplace(localSize, name);
  byAddress_.emplace(name, &use.first);
}

}  // namespace vantry::reader
