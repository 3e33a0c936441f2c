// The page of the plots that a command line names.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "vantry/page/page.h"

namespace vantry::zrd {

/// Writes the page that shows these plots: plot documents, among them "-" for standard input, and
/// JVX files, each with the JVD file of the same name if there is one. Throws Failure.
void writePlotPage(std::ostream& out, const std::vector<std::string>& plots,
                   const page::Options& options);

/// The same into a file, which appears whole or not at all.
void writePlotPage(const std::filesystem::path& name, const std::vector<std::string>& plots,
                   const page::Options& options);

/// Throws Failure if an output would replace one of the plots, or the display of one.
void refuseInput(const std::filesystem::path& output, const std::vector<std::string>& plots);

}  // namespace vantry::zrd
