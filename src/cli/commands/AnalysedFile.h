// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "analysis/BlockWarnings.h"
#include "analysis/ConversionConditions.h"
#include "app/StartUp.h"
#include "cli/commands/BlockFile.h"
#include "link/BlockConditions.h"
#include "link/RegisterFields.h"

namespace vx3260 {

/// A block from a data file, and what is known of how it was read.
struct FileBlock {
    std::vector<std::int32_t> codes;
    ConversionConditions conditions;
    std::vector<BlockWarning> warnings;        ///< already printed
    std::optional<BlockConditions> reading{};  ///< how it was read; empty where unknown
    std::optional<double> rate{};              ///< readings in a second
};

/// The rate of the block. Throws CommandError, which names --rate, where it is unknown.
double KnownRate(const FileBlock& block);

/// The data file that a command analyses, with the options that describe how it was read: the range
/// of the main ADC or the full scale of the aux ADC, polarity, reference voltage, notation. What is
/// not given is taken from the conditions file beside it. The parser refers to the object, which
/// stays where it is.
class AnalysedFile final {
  public:
    /// The converter's word is parsed before the options, which are checked against it.
    explicit AnalysedFile(const Converter& converter) : converter_(converter) {}
    ~AnalysedFile() = default;
    AnalysedFile(const AnalysedFile&) = delete;
    AnalysedFile(AnalysedFile&&) = delete;
    AnalysedFile& operator=(const AnalysedFile&) = delete;
    AnalysedFile& operator=(AnalysedFile&&) = delete;

    /// Adds FILE, which is returned, and its options except those below.
    CLI::Option* AddTo(CLI::App& parser, const std::string& description);

    /// Adds --reference, which a command may need without FILE too.
    void AddReferenceTo(CLI::App& parser);

    /// Adds --rate.
    void AddRateTo(CLI::App& parser);

    bool IsGiven() const { return !file_.path.empty(); }
    const BlockFile& File() const { return file_; }
    float ReferenceVoltage() const { return referenceVoltage_; }

    /// The block, which is not empty, with its conditions. `checkCount` is called with the number
    /// of codes before these are checked. Throws as LoadBlock and CheckWarnings do, and
    /// CommandError where neither options nor a conditions file say how the codes become volts;
    /// prints warnings to `err`.
    FileBlock Load(std::ostream& err,
                   const std::function<void(std::size_t count)>& checkCount = {}) const;

  private:
    CLI::Option* AddField(CLI::App& parser, const std::string& option,
                          const RegisterMap::Field& field, const std::string& description);
    CLI::Option* AddRange(CLI::App& parser);
    void Give(const RegisterMap::Field& field, std::int32_t code);
    void RequireScale() const;
    std::int32_t ControlBeside(const std::optional<BlockConditions>& conditions) const;
    float ReferenceBeside(const std::optional<BlockConditions>& conditions) const;

    const Converter& converter_;
    BlockFile file_;
    /// What the control register held when FILE was read, as far as options say.
    std::int32_t control_ = 0;
    std::int32_t givenMask_ = 0;  ///< the bits of it that options were given for
    float referenceVoltage_ = DefaultReferenceVoltage;
    const CLI::Option* referenceOption_ = nullptr;
    std::optional<double> rate_;
};

}  // namespace vx3260
