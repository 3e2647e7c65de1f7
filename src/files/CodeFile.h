// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "files/CodeText.h"
#include "numbers/FileErrors.h"

namespace vx3260 {

/// The maximum size of a kind of file. Also protects against an endless pipe.
struct SizeLimit {
    std::size_t bytes;
    std::string_view reason;  ///< ends the message about a file beyond that
};

/// Whether there is a file or anything else of this name.
bool FileExists(const std::string& path);

/// The bytes of a file. Throws FileAccessError, or BadDataError for a file beyond the limit. Waits
/// for data from a pipe or a device, but never for a regular file.
std::string LoadBytes(const std::string& path, const SizeLimit& limit);

/// The same for standard input, up to its end.
std::string LoadStandardInput(const SizeLimit& limit);

/// Checks a file name that the user chose. Throws FileAccessError for a pipe or a device, which may
/// block the program for ever, for the name of an open file (/dev/fd/3), and on Windows for a name
/// that is mapped to a device (aux.dat).
void CheckIsNotDevice(const std::string& path);

/// Replaces a file atomically by these bytes, which are on the disk then, or leaves it as it was; a
/// link to it stays a link. Throws FileAccessError, also when CheckIsNotDevice does.
void ReplaceFile(const std::string& path, std::string_view bytes);

/// The codes in a file; its contents are those of ParseCodes. Paths are UTF-8. Reads no more than
/// a few megabytes, so that a pipe may be endless. Throws FileAccessError, or BadDataError as
/// ParseCodes does and for a file beyond that size.
ParsedCodes LoadCodes(const std::string& path, Notation notation);

/// The same of standard input, up to its end.
ParsedCodes LoadCodesOfStandardInput(Notation notation);

/// NotationByLook of a file. Throws as LoadBytes does.
std::optional<Notation> LookOf(const std::string& path);

/// Writes a text to a stream and flushes it. Throws FileAccessError with `name` for the stream.
void WriteToStream(std::ostream& stream, std::string_view text, std::string_view name);

/// A place for one block of codes, tried out before there are any: a reading may take minutes.
///
/// A file is replaced as ReplaceFile does. A pipe, a device or the name of an open file is written
/// directly.
class CodeWriter {
  public:
    /// Throws FileAccessError when the file cannot be written there. Creates none yet.
    explicit CodeWriter(std::string path);

    /// Standard output, which outlives the writer.
    explicit CodeWriter(std::ostream& standardOutput)
        : name_("standard output"), stream_(&standardOutput) {}

    /// Standard output if `target` is empty, "-" or "/dev/stdout"; otherwise that file.
    CodeWriter(std::string target, std::ostream& standardOutput);

    /// Whether the place is a file, which may have another one beside it.
    bool IsFile() const { return stream_ == nullptr && device_ == nullptr; }

    /// Whether a file exists that writing would replace.
    bool WouldReplace() const;

    /// Writes the block's text, once. Throws FileAccessError; where a file could not be replaced
    /// after all, the text is then in a new one, if possible, which the message names: beside it,
    /// with letters added to its name, or in the folder for temporary files.
    void Write(std::string_view text);

    /// The same for a reading that did not complete. An existing file is not replaced: the text
    /// goes to a new one, as above. Returns the path that was written, or Name().
    std::string WriteIncomplete(std::string_view text);

    /// The place, as messages name it.
    const std::string& Name() const { return name_; }

  private:
    std::string name_;
    std::ostream* stream_ = nullptr;  ///< standard output, when that is the place
    std::unique_ptr<QFile> device_;   ///< what is written directly, when that is the place
};

}  // namespace vx3260
