// A page as a browser sees it.
#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "vantry/page/page.h"

namespace vantry::page {

/// What a page made with the template "before<!--DATA-->after" consists of.
struct ReadPage {
  explicit ReadPage(std::string_view page);

  /// The text of the block that a frame names as its `kind`: "model" or "display".
  const std::string& block(std::size_t panel, std::size_t frame, const std::string& kind) const;

  /// The runs of a frame, which may be those of a frame before.
  const nlohmann::json& runs(std::size_t panel, std::size_t frame) const;

  const nlohmann::json& panel(std::size_t i) const { return text.at("panels").at(i); }

  bool isWhole = false;                       ///< begins and ends as the template, without a gap
  nlohmann::json text;                        ///< the text about the page
  std::map<std::string, std::string> blocks;  ///< unpacked, by their names
};

inline constexpr std::string_view smallTemplate = "before<!--DATA-->after";

/// Unpacks what writePacked() has written.
std::string unpacked(std::string_view base64);

/// The page of a document, whose source is "plot.zrd" and whose title is "plot".
ReadPage pageOf(std::string_view document, const Options& options = {});

/// The reason why there is no such page.
std::string refusal(std::string_view document, const Options& options = {});

}  // namespace vantry::page
