// A writer of models that notes which object each geometry belongs to.
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <span>
#include <unordered_map>

#include "vantry/javaview/jvx_writer.h"
#include "vantry/page/texts.h"

namespace vantry::page {

/// Writes a scene as a model, and keeps what a page says of its geometries.
class RecordingWriter final : public javaview::JVXWriter {
 public:
  using JVXWriter::JVXWriter;

  /// Numbers these objects from 0 on. They must be all that have geometries.
  void setObjects(std::span<const plot::ObjectBase* const> objects);

  /// The runs of geometries of the last text: those that follow each other and have the same object
  /// and the same styles are one.
  const Json& runs() const { return runs_; }

  void write(std::ostream& stream, double time) override;
  void geometriesWritten(const plot::ObjectBase& object, const plot::PlotElement& primitive,
                         std::int64_t count) override;

 private:
  std::unordered_map<const plot::ObjectBase*, std::size_t> numbers_;
  Json runs_ = Json::array();
  Json lastRun_;  // without its count
};

}  // namespace vantry::page
