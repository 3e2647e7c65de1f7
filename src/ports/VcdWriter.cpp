// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/VcdWriter.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iomanip>
#include <system_error>

#include "app/ApplicationInfo.h"
#include "numbers/FileErrors.h"
#include "numbers/FilePath.h"

namespace vx3260 {
namespace {

constexpr char firstIdentifier = '!';

/// The format's short name of a variable.
char IdentifierOf(std::size_t variable) {
    return static_cast<char>(firstIdentifier + variable);
}

/// Values end at white space; viewers resolve what C writes with a backslash.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == ' ') {
            escaped += "\\040";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string ChangeLine(VcdType type, std::string_view value, std::size_t variable) {
    const std::string text =
        type == VcdType::Wire ? std::string(value) : "s" + Escaped(value) + " ";
    return text + IdentifierOf(variable) + "\n";
}

std::int64_t InMicroseconds(std::chrono::nanoseconds time) {
    return std::chrono::duration_cast<std::chrono::microseconds>(time).count();
}

std::string TimeLine(std::int64_t microseconds) {
    return "#" + std::to_string(microseconds) + "\n";
}

std::string DeclarationOf(const VcdVariable& variable, std::size_t number) {
    const std::string type = variable.type == VcdType::Wire ? "wire" : "string";
    return "$var " + type + " 1 " + IdentifierOf(number) + " " + std::string(variable.name) +
           " $end\n";
}

/// The sections that a dump can begin with.
constexpr std::string_view firstSections[] = {"$version", "$date", "$timescale", "$comment",
                                              "$scope"};

/// Only a regular file has contents that could be lost.
void RefuseOtherThanDump(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(FilePath(path), error) ||
        std::filesystem::file_size(FilePath(path), error) == 0) {
        return;
    }
    std::string start;
    std::ifstream(FilePath(path), std::ios::binary) >> std::setw(16) >> start;
    if (std::find(std::begin(firstSections), std::end(firstSections), start) ==
        std::end(firstSections)) {
        throw FileAccessError("cannot write the trace to " + path +
                              ": there is a file of that name that is not a trace; choose another "
                              "name");
    }
}

std::string Header(std::string_view scope, std::span<const VcdVariable> variables) {
    std::string text = "$version " + std::string(ApplicationTitle) + " " +
                       std::string(VersionText) + " $end\n$timescale 1 us $end\n$scope module " +
                       std::string(scope) + " $end\n";
    for (std::size_t i = 0; i < variables.size(); ++i) {
        text += DeclarationOf(variables[i], i);
    }
    text += "$upscope $end\n$enddefinitions $end\n" + TimeLine(0) + "$dumpvars\n";
    for (std::size_t i = 0; i < variables.size(); ++i) {
        text += ChangeLine(variables[i].type, variables[i].start, i);
    }
    return text + "$end\n";
}

}  // namespace

/// Unbuffered: what is left in a buffer after a failure would be written once more at the end.
VcdWriter::VcdWriter(const std::string& path, std::string_view scope,
                     std::span<const VcdVariable> variables)
    : path_(path) {
    for (const VcdVariable& variable : variables) {
        types_.push_back(variable.type);
        values_.push_back(variable.start);
    }
    errno = 0;
    file_.rdbuf()->pubsetbuf(nullptr, 0);
    RefuseOtherThanDump(path);
    file_.open(FilePath(path), std::ios::binary | std::ios::trunc);
    if (!file_) {
        throw CannotWrite(path_);
    }
    Append(Header(scope, variables) + TimeLine(end_));
}

void VcdWriter::Write(std::chrono::nanoseconds time, std::span<const std::string> values) {
    std::string changes;
    for (std::size_t i = 0; i < values_.size(); ++i) {
        if (values[i] != values_[i]) {
            changes += ChangeLine(types_[i], values[i], i);
            values_[i] = values[i];
        }
    }
    if (changes.empty()) {
        return;
    }
    const std::int64_t at = std::max(InMicroseconds(time), end_);
    const std::string start = at == end_ ? "" : TimeLine(at);
    end_ = at + 1;
    Append(start + changes + TimeLine(end_));
}

void VcdWriter::ExtendTo(std::chrono::nanoseconds time) {
    const std::int64_t at = InMicroseconds(time);
    if (at > end_) {
        end_ = at;
        Append(TimeLine(end_));
    }
}

/// In one write, so that a killed process does not leave half a step.
void VcdWriter::Append(const std::string& text) {
    errno = 0;
    if (file_.write(text.data(), static_cast<std::streamsize>(text.size()))) {
        size_ += text.size();
        return;
    }
    const int error = errno;
    std::error_code ignored;
    std::filesystem::resize_file(FilePath(path_), size_, ignored);
    errno = error;
    throw CannotWrite(path_);
}

}  // namespace vx3260
