// SPDX-License-Identifier: GPL-3.0-or-later
#include "FileCheck.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

#include "characterisation/ResultsFolder.h"
#include "configuration/ConfigurationFile.h"
#include "files/CodeFile.h"
#include "files/ConditionsFile.h"

namespace vx3260::matrix {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view conditionsSuffix = ".json";

void CheckConditions(const std::string& path, const std::string& bytes) {
    const std::string dataPath = path.substr(0, path.size() - conditionsSuffix.size());
    ParseConditions(bytes, LoadCodes(dataPath, Notation::Decimal).codes);
}

bool Frames(const std::string& bytes, std::string_view begin, std::string_view end) {
    return bytes.starts_with(begin) && bytes.ends_with(end);
}

/// Whether a file is all that its kind has to be. Throws where it cannot be read.
bool IsComplete(const std::string& path, const std::string& bytes) {
    const fs::path name = fs::path(path).filename();
    const std::string suffix = name.extension().string();
    if (name == "characterisation.json") {
        LoadResults(fs::path(path).parent_path().string());
        return true;
    }
    if (suffix == conditionsSuffix) {
        CheckConditions(path, bytes);
        return true;
    }
    if (suffix == ".script") {
        LoadConfiguration(path);
        return true;
    }
    if (suffix == ".h") {
        return Frames(bytes, "/", "#endif\n");
    }
    if (suffix == ".html") {
        return Frames(bytes, "<!", "</html>\n");
    }
    if (suffix == ".vcd") {
        return Frames(bytes, "$", "\n");
    }
    if (suffix == ".csv") {
        return Frames(bytes, name == "table.csv" ? "" : "utc,elapsed_s,", "\n");
    }
    return LoadCodes(path, Notation::Decimal).warning.empty();
}

/// The first part of the path of a file, which is what commands name.
std::string NamedPart(const std::string& name) {
    return name.substr(0, name.find('/'));
}

/// Whether a run may leave a file other than it was. What is read in vain is kept beside the old
/// file, under a name of its own that the program prints.
bool MayWrite(const std::string& name, bool existed, const BoardCommand& command,
              const RunResult& result) {
    std::string named = NamedPart(name);
    const bool isConditions = named.ends_with(conditionsSuffix);
    named.resize(named.size() - (isConditions ? conditionsSuffix.size() : 0));
    if (command.words.find("@" + named) == std::string::npos) {
        return !existed && result.err.find("/" + named) != std::string::npos;
    }
    const bool grows =
        name.find('/') != std::string::npos || name.ends_with(".csv") || name.ends_with(".vcd");
    return grows || result.code == ExitCode::Success;
}

std::string WrongFile(const std::string& folder, const std::string& name, const std::string* before,
                      const std::string& bytes, const BoardCommand& command,
                      const RunResult& result) {
    if (before != nullptr && *before == bytes) {
        return "";
    }
    if (!MayWrite(name, before != nullptr, command, result)) {
        return name + (before == nullptr ? " was left behind" : " has changed");
    }
    const bool appends = command.words.ends_with("--append");
    if (appends && before != nullptr && !bytes.starts_with(*before)) {
        return name + " has lost what was in it";
    }
    try {
        return IsComplete(folder + "/" + name, bytes) ? "" : name + " is incomplete";
    } catch (const std::exception& error) {
        return name + " is bad: " + error.what();
    }
}

}  // namespace

Files FilesIn(const std::string& folder) {
    Files files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            std::ifstream file(entry.path(), std::ios::binary);
            files[fs::relative(entry.path(), folder).string()] =
                std::string(std::istreambuf_iterator<char>(file), {});
        }
    }
    return files;
}

void PutBack(const std::string& folder, const Files& files, const Files& present) {
    for (const auto& [name, bytes] : present) {
        if (!files.contains(name)) {
            fs::remove(fs::path(folder) / name);
        }
    }
    for (const auto& [name, bytes] : files) {
        const auto found = present.find(name);
        if (found == present.end() || found->second != bytes) {
            std::ofstream(fs::path(folder) / name, std::ios::binary) << bytes;
        }
    }
}

std::vector<std::string> WrongFiles(const std::string& folder, const Files& before,
                                    const Files& after, const BoardCommand& command,
                                    const RunResult& result) {
    std::vector<std::string> wrong;
    for (const auto& [name, bytes] : after) {
        const auto old = before.find(name);
        wrong.push_back(WrongFile(folder, name, old == before.end() ? nullptr : &old->second, bytes,
                                  command, result));
    }
    for (const auto& [name, bytes] : before) {
        const bool replaced = name.find('/') != std::string::npos &&
                              command.words.find("@" + NamedPart(name)) != std::string::npos;
        if (!after.contains(name) && !replaced) {
            wrong.push_back(name + " is gone");
        }
    }
    std::erase(wrong, "");
    return wrong;
}

}  // namespace vx3260::matrix
