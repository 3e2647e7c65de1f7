// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/BlockReading.h"

#include <utility>

#include "acquisition/ConditionsRecorder.h"
#include "app/MessageTexts.h"
#include "app/PortWords.h"
#include "cli/board/BoardRegisters.h"
#include "cli/board/ProgressLine.h"
#include "cli/board/StuckReadyLine.h"
#include "link/FieldWrite.h"
#include "link/Register.h"
#include "link/RegisterLookup.h"
#include "link/RegisterMap.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

[[noreturn]] void RefuseReadBack(Services& services, const FieldWrite& write) {
    RequireAnswer(services, {RegisterMap::DescriptionOf(RegisterMap::Mode), write.readBack},
                  PrefixedHex(write.wanted) + " was written. ");
    throw CommandError(
        ExitCode::ReadBackMismatch,
        "wrong answer from the board: wrote " + PrefixedHex(write.wanted) +
            " to the mode register and read back " + PrefixedHex(write.readBack) +
            InPortWords(". Check the {cable} and the board's power.", services.port));
}

ReadingEnd ReadWithProgress(ConverterReader& reader, CodeBlock block, std::int16_t count,
                            const CliStreams& streams, ConditionsRecorder& recorder,
                            const std::function<bool()>& stopRequested) {
    ProgressLine progress(streams.err, count, streams.errWidth);
    return ReadBlock(reader, block, count,
                     {.beforeEach = [&] { progress.Show(block.count - 1); },
                      .afterEach = [&] { recorder.CodeRead(); },
                      .stopRequested = stopRequested});
}

/// Makes all registers known, for the conditions of the block.
void ReadAllRegisters(Services& services) {
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        ReadContents(services, description.access);
    }
}

/// The converter's error bit of the status register.
bool ReadOverRange(Services& services, Converter converter) {
    const std::int32_t status = ReadContents(services, RegisterMap::Status);
    return (status & TraitsOf(converter).errorMask) != 0;
}

/// A board that goes while a code is clocked in leaves a false one, which only a later access
/// shows.
bool GoneAfterReading(Services& services, Converter converter, ReadingEnd end) {
    return end != ReadingEnd::TimedOut &&
           !BoardAnswers(services, RegisterMap::DescriptionOf(TraitsOf(converter).control));
}

constexpr std::string_view goneDetail =
    "The board does not answer after the last code, which was discarded. Check the {cable} and the "
    "board's power.";

/// Reports a reading that did not complete.
void ReportEnd(Services& services, ReadingEnd end, const std::string& timeoutDetail,
               std::size_t codes) {
    const std::string soFar =
        "\nRead so far: " + CountText(static_cast<std::int64_t>(codes), "code");
    if (end == ReadingEnd::TimedOut) {
        services.messages.Show(
            {.text = std::string(MessageTexts::ReadingTimedOut), .detail = timeoutDetail + soFar});
    } else if (end == ReadingEnd::Stopped) {
        services.messages.Show({.text = std::string(MessageTexts::ReadingStopped) + soFar,
                                .icon = MessageIcon::Exclamation});
    }
}

std::vector<std::int32_t> GoodCodes(const CodeBlock& block, ReadingEnd end) {
    const std::size_t invalid = end == ReadingEnd::TimedOut ? 1 : 0;
    return ToIntegers(block.Codes().first(block.Codes().size() - invalid));
}

}  // namespace

void EnsureContinuousConversion(Services& services, std::ostream& err) {
    Register mode(services.port, services.state.PortAddress, RegisterMap::Mode);
    const std::int32_t before = mode.ReadValue();
    if (RegisterMap::IsContinuousConversion(before)) {
        return;
    }
    const FieldWrite write =
        WriteField(mode, before, RegisterMap::OperatingMode, RegisterMap::ContinuousConversion);
    if (!write.Verified()) {
        RefuseReadBack(services, write);
    }
    err << "The chip was not in Continuous Conversion Mode: mode register changed from "
        << PrefixedHex(before) << " to " << PrefixedHex(write.wanted) << std::endl;
}

void RequireEnabled(Services& services, const ConverterReader& reader, Converter converter) {
    if (reader.Enabled()) {
        return;
    }
    RequireAnswer(
        services,
        {RegisterMap::DescriptionOf(TraitsOf(converter).control), reader.Control(converter)},
        NothingWritten);
    throw CommandError(ExitCode::ConverterDisabled, MessageTexts::ConverterDisabled(converter));
}

BlockReading ReadCodes(Services& services, const CliStreams& streams, const BlockRequest& request,
                       const std::function<bool()>& stopRequested) {
    const Converter converter = request.converter;
    ReadAllRegisters(services);
    ConverterReader reader(services.port, services.state.PortAddress, converter);
    reader.ReadControls();
    RequireEnabled(services, reader, converter);
    CheckReadyLine(services);
    streams.err << "Reading " << CountText(request.count, "code") << " from the "
                << TraitsOf(converter).name << " ADC, Ctrl+C stops" << std::endl;
    const CodeBlock block = services.state.BlockOf(converter);
    ConditionsRecorder recorder(services, converter);
    const ReadingEnd read =
        ReadWithProgress(reader, block, request.count, streams, recorder, stopRequested);
    // Before the board is looked for, which shows whether this is true as well.
    const bool overRange = read != ReadingEnd::TimedOut && ReadOverRange(services, converter);
    const bool gone = GoneAfterReading(services, converter, read);
    const ReadingEnd end = gone ? ReadingEnd::TimedOut : read;
    BlockReading reading{.codes = GoodCodes(block, end),
                         .conditions = std::move(recorder).End(end, request.referenceVoltage),
                         .overRange = overRange && !gone};
    reading.conditions.seconds.resize(reading.codes.size());
    ReportEnd(
        services, end,
        gone ? InPortWords(goneDetail, services.port) : MessageTexts::TimeoutDetail(services.port),
        reading.codes.size());
    return reading;
}

void PrintWarnings(const std::vector<std::string>& warnings, std::ostream& err) {
    for (const std::string& warning : warnings) {
        err << "Warning: " << warning << std::endl;
    }
}

ExitCode ExitCodeOf(ReadingEnd end, bool stopRequested) {
    if (end == ReadingEnd::TimedOut) {
        return ExitCode::NoAnswer;
    }
    return end == ReadingEnd::Stopped || stopRequested ? ExitCode::Interrupted : ExitCode::Success;
}

}  // namespace vx3260
