#include "zrd/convert/conversion.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "vantry/base/text_errors.h"
#include "vantry/javaview/export_error.h"
#include "vantry/javaview/frame_times.h"
#include "vantry/javaview/jvd_writer.h"
#include "vantry/javaview/jvx_writer.h"
#include "zrd/commands.h"
#include "zrd/output_file.h"
#include "zrd/plot_file.h"

namespace vantry::zrd {

namespace {

namespace fs = std::filesystem;

void replaceAll(std::string& text, std::string_view what, const std::string& by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
}

fs::path outputName(const FoundPlot& input, OutputKind kind, const ConvertSettings& settings) {
  std::string name = settings.pattern;
  replaceAll(name, "{ext}", extensionOf(kind));
  replaceAll(name, "{name}", input.name.stem());
  if (settings.outputFolder.empty()) return input.name.parent_path() / name;
  return (settings.outputFolder / input.folder / name).lexically_normal();
}

void makeFolderOf(const fs::path& name) {
  if (!name.has_parent_path()) return;
  std::error_code failure;
  fs::create_directories(name.parent_path(), failure);
  if (failure) {
    throw std::runtime_error(name.parent_path().string() + " cannot be made: " + failure.message());
  }
}

/// The outputs of one document, which appear together once all are written.
class Outputs {
 public:
  Outputs(OutputNames& names, const fs::path& input) : names_(names), input_(input) {}

  OutputFile& create(const fs::path& name) {
    names_.take(name, input_);
    makeFolderOf(name);
    return *files_.emplace_back(std::make_unique<OutputFile>(name));
  }

  bool empty() const { return files_.empty(); }

  /// The first one comes last: where it is new, all of them are.
  void appear() {
    std::for_each(files_.rbegin(), files_.rend(), [](const auto& file) { file->appear(); });
  }

 private:
  OutputNames& names_;
  const fs::path& input_;
  std::vector<std::unique_ptr<OutputFile>> files_;
};

/// A writer whose outputs come together with the others of the document, and whose warnings are
/// reported.
template <class Base>
class Writer : public Base {
 public:
  Writer(plot::PlotDocument& document, const std::string& name, const ConvertSettings& settings,
         Outputs& outputs, ConvertReport& report)
      : Base(&document), name_(name), outputs_(outputs), report_(report) {
    if (settings.date) this->fixDate(*settings.date);
  }

  void warning(const char* text) override { report_.warn(name_ + ": warning: " + text); }

  void writeFile(double time, const fs::path& name) {
    OutputFile& file = outputs_.create(name);
    this->write(file.stream(), time);
    file.close();
  }

 private:
  const std::string& name_;
  Outputs& outputs_;
  ConvertReport& report_;
};

using DisplayWriter = Writer<javaview::JVDWriter>;

class ModelWriter : public Writer<javaview::JVXWriter> {
 public:
  using Writer::Writer;

 protected:
  void writeFrame(double time, const char* fileName) override { writeFile(time, fileName); }
};

/// Writes the frames of an animation. The document is right where only the option makes too many.
void writeFrames(ModelWriter& writer, const std::string& input, int frames,
                 const fs::path& output) {
  double begin = plot::nan;
  double end = plot::nan;
  const bool isFinite = writer.timeRange(begin, end) && std::isfinite(end - begin);
  if (isFinite && javaview::frameTimes(begin, end, frames, ModelWriter::mostFrames).empty()) {
    throw Failure(badDocument, input + ": --frames " + std::to_string(frames) +
                                   " makes more than " + std::to_string(ModelWriter::mostFrames) +
                                   " frames");
  }
  writer.writeAnimation(frames, output.c_str());
}

fs::path firstFrame(const fs::path& name) {
  return javaview::JVXWriter::frameName(name.native(), 1);
}

}  // namespace

std::vector<PlannedConversion> planConversions(const std::vector<FoundPlot>& inputs,
                                               const ConvertSettings& settings, OutputNames& names,
                                               ConvertReport& report) {
  std::vector<PlannedConversion> plans;
  for (const FoundPlot& input : inputs) {
    PlannedConversion plan{input.name, {}};
    try {
      for (const OutputKind kind : settings.kinds) {
        plan.outputs.push_back({kind, outputName(input, kind, settings)});
        names.take(plan.outputs.back().name, input.name);
      }
      plans.push_back(std::move(plan));
    } catch (const std::exception& failure) {
      report.fail(input.name.string() + ": " + failure.what());
    }
  }
  return plans;
}

Converter::Converter(const ConvertSettings& settings, OutputNames& names, ConvertReport& report)
    : settings_(settings),
      names_(names),
      report_(report),
      programTime_(fs::last_write_time("/proc/self/exe")) {}

bool Converter::convert(const PlannedConversion& plan) const {
  const std::string name = plan.input;
  try {
    if (convertChanged(plan)) {
      report_.converted();
    } else {
      report_.unchanged();
    }
    return true;
  } catch (const BadDocument& failure) {  // names the document and the place
    report_.failBad(failure.what());
  } catch (const javaview::JavaViewExportError& failure) {
    report_.failBad(name + ": " + failure.what());
  } catch (const base::BadUnicodeString& failure) {
    report_.failBad(name + ": " + failure.what());
  } catch (const Failure& failure) {  // names the document
    report_.fail(failure.what());
  } catch (const std::bad_alloc&) {
    report_.fail(name + ": out of memory");
  } catch (const std::exception& failure) {
    report_.fail(name + ": " + failure.what());
  }
  return false;
}

/// Returns false if all outputs may stay.
bool Converter::convertChanged(const PlannedConversion& plan) const {
  std::vector<PlannedOutput> due;
  std::ranges::copy_if(plan.outputs, std::back_inserter(due), [&](const PlannedOutput& output) {
    const bool isSeries = output.kind == OutputKind::jvx && settings_.frames > 0;
    return !isCurrent(plan.input, isSeries ? firstFrame(output.name) : output.name);
  });
  if (due.empty()) return false;

  const std::string name = plan.input;
  const PlotFile file(name, [this](const std::string& line) { report_.warn(line); });
  Outputs outputs(names_, plan.input);
  for (const auto& [kind, outputName] : due) {
    if (kind == OutputKind::jvd) {
      DisplayWriter(file.document(), name, settings_, outputs, report_)
          .writeFile(settings_.time, outputName);
      continue;
    }
    ModelWriter writer(file.document(), name, settings_, outputs, report_);
    if (settings_.frames > 0 && writer.isAnimated()) {
      writeFrames(writer, name, settings_.frames, outputName);
    } else if (settings_.frames == 0 || !isCurrent(plan.input, outputName)) {
      if (settings_.frames > 0) writer.warning("no animation, --frames ignored");
      writer.writeFile(settings_.time, outputName);
    }
  }
  outputs.appear();
  return !outputs.empty();
}

bool Converter::isCurrent(const fs::path& input, const fs::path& output) const {
  if (!settings_.ifChanged) return false;
  std::error_code missing;  // what is not there counts as old
  const auto written = fs::last_write_time(output, missing);
  return written > programTime_ && written > fs::last_write_time(input, missing);
}

}  // namespace vantry::zrd
