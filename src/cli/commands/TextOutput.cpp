// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/TextOutput.h"

#include <CLI/CLI.hpp>

namespace vx3260 {

void AddForce(CLI::App& parser, OutputChoice& output, CLI::Option* file) {
    parser.add_flag("--force", output.force, "Replace an existing file")->needs(file);
}

void RefuseToReplaceFile(const std::string& path) {
    throw FileAccessError("cannot write " + path + ": the file exists; --force replaces it");
}

TextOutput::TextOutput(const OutputChoice& choice, const CommandContext& context)
    : writer_(choice.file, context.streams.out), err_(context.streams.err) {
    if (!choice.force && writer_.WouldReplace()) {
        RefuseToReplaceFile(writer_.Name());
    }
}

void TextOutput::Write(std::string_view text) {
    writer_.Write(text);
    if (writer_.IsFile()) {
        err_ << "Wrote " << writer_.Name() << std::endl;
    }
}

}  // namespace vx3260
