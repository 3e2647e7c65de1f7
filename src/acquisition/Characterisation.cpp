// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/Characterisation.h"

#include <stdexcept>
#include <utility>

#include "acquisition/ConditionsRecorder.h"
#include "acquisition/Reading.h"
#include "link/Calibration.h"
#include "link/FilterRate.h"
#include "link/Register.h"
#include "link/RegisterLookup.h"
#include "link/Serial.h"

namespace vx3260 {
namespace {

/// The chip needs so many conversions for one calibration.
constexpr int conversionsOfCalibration = 3;
constexpr int calibrations = 2;

/// Why a setting could not be measured.
class SettingFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Thrown out of a reading when a stop is requested.
class SettingStopped {};

std::string TimeOutText(const std::string& what, int number, int total) {
    return "time-out: no data-ready for " + what + " " + std::to_string(number) + " of " +
           std::to_string(total);
}

class SettingRun {
  public:
    SettingRun(Services& services, const CharacterisationPlan& plan,
               const CharacterisationHooks& hooks)
        : services_(services), plan_(plan), hooks_(hooks) {}

    CharacterisedBlock Measure(const CharacterisedSetting& setting);

  private:
    Register At(const RegisterMap::RegisterAccess& access) {
        return {services_.port, services_.state.PortAddress, access};
    }
    void WriteVerified(const RegisterMap::RegisterAccess& access, std::int32_t value);
    void SetMode(std::int32_t mode);
    void Apply(const CharacterisedSetting& setting);
    void Calibrate(std::int32_t mode);
    void Settle(ConverterReader& reader);
    void ReadCodes(ConverterReader& reader, CharacterisedBlock& block);
    void Analyse(CharacterisedBlock& block);

    Services& services_;
    const CharacterisationPlan& plan_;
    const CharacterisationHooks& hooks_;
};

void SettingRun::WriteVerified(const RegisterMap::RegisterAccess& access, std::int32_t value) {
    Register reg = At(access);
    reg.WriteValue(value);
    const std::int32_t readBack = reg.ReadValue();
    if (readBack != value) {
        const RegisterMap::RegisterDescription& description = RegisterMap::DescriptionOf(access);
        throw SettingFailure("wrote " + RegisterMap::RegisterHex(value, access) +
                             " to the register " + std::string(description.name) + ", read back " +
                             RegisterMap::RegisterHex(readBack, access));
    }
}

void SettingRun::SetMode(std::int32_t mode) {
    const std::int32_t before = At(RegisterMap::Mode).ReadValue();
    WriteVerified(RegisterMap::Mode, RegisterMap::OperatingMode.Insert(before, mode));
}

void SettingRun::Apply(const CharacterisedSetting& setting) {
    const RegisterMap::RegisterAccess& access = TraitsOf(plan_.converter).control;
    SetMode(RegisterMap::PowerDown);
    WriteVerified(RegisterMap::Filter, setting.filterWord);
    std::int32_t control = At(access).ReadValue();
    control = RegisterMap::Enable.Insert(control, 1);
    control = ChannelField(plan_.converter).Insert(control, plan_.channel);
    control = ScaleField(plan_.converter).Insert(control, setting.range);
    control = RegisterMap::Polarity.Insert(control, setting.polarity == Polarity::Unipolar ? 1 : 0);
    WriteVerified(access, control);
}

void SettingRun::Calibrate(std::int32_t mode) {
    Register modeRegister = At(RegisterMap::Mode);
    StartCalibration(modeRegister, mode);
    if (!WaitForCalibration(services_.port, services_.state.PortAddress)) {
        throw SettingFailure("the calibration did not end in time");
    }
}

void SettingRun::Settle(ConverterReader& reader) {
    for (int i = 0; i < plan_.settle; ++i) {
        if (reader.ReadCode() == ReadTimeout) {
            throw SettingFailure(TimeOutText("result", i + 1, plan_.settle));
        }
        if (hooks_.stopRequested && hooks_.stopRequested()) {
            throw SettingStopped();
        }
    }
}

void SettingRun::ReadCodes(ConverterReader& reader, CharacterisedBlock& block) {
    std::vector<double> codes;
    std::int16_t count = 0;
    ConditionsRecorder recorder(services_, plan_.converter);
    const ReadingEnd end = ReadBlock(reader, {codes, count}, plan_.count,
                                     {.afterEach =
                                          [&] {
                                              recorder.CodeRead();
                                              if (hooks_.afterEach) {
                                                  hooks_.afterEach(count);
                                              }
                                          },
                                      .stopRequested = hooks_.stopRequested});
    if (end == ReadingEnd::Stopped) {
        throw SettingStopped();
    }
    if (end == ReadingEnd::TimedOut) {
        throw SettingFailure(TimeOutText("code", count, plan_.count));
    }
    block.codes = ToIntegers(codes);
    block.conditions = std::move(recorder).End(end, plan_.referenceVoltage);
}

void SettingRun::Analyse(CharacterisedBlock& block) {
    const std::int32_t status = At(RegisterMap::Status).ReadValue();
    const std::vector<double> codes = ToDoubles(block.codes);
    const std::optional<ConversionConditions> own = ConditionsOf(block.conditions);
    if (!own) {
        throw SettingFailure("the control register is unknown");
    }
    block.analysis = AnalyseNoise(codes, *own);
    block.warnings =
        WarningsAbout(codes, block.conditions, (status & TraitsOf(plan_.converter).errorMask) != 0);
}

CharacterisedBlock SettingRun::Measure(const CharacterisedSetting& setting) {
    CharacterisedBlock block{.setting = setting};
    try {
        Apply(setting);
        if (plan_.calibrate) {
            Calibrate(RegisterMap::InternalZeroScale);
            Calibrate(RegisterMap::InternalFullScale);
        }
        SetMode(RegisterMap::ContinuousConversion);
        ConverterReader reader(services_.port, services_.state.PortAddress, plan_.converter);
        reader.ReadControls();
        Settle(reader);
        ReadCodes(reader, block);
        Analyse(block);
    } catch (const SettingFailure& failure) {
        block.failure = failure.what();
    }
    return block;
}

/// A board that is gone gives equal bits only, in every register.
bool BoardAnswers(Services& services, const Configuration& before) {
    for (const RegisterSetting& setting : before) {
        const RegisterMap::RegisterAccess& access = setting.description.access;
        const std::int32_t value = ReadRegister(services.port, services.state.PortAddress, access);
        const std::int32_t allOnes = (std::int32_t{1} << access.wordLength) - 1;
        if (value != 0 && value != allOnes) {
            return true;
        }
    }
    return false;
}

CharacterisationEnd RunThrough(Services& services, const CharacterisationPlan& plan,
                               std::span<const CharacterisedSetting> settings,
                               const CharacterisationHooks& hooks, const Configuration& before) {
    SettingRun run(services, plan, hooks);
    try {
        for (const CharacterisedSetting& setting : settings) {
            if (hooks.stopRequested && hooks.stopRequested()) {
                return CharacterisationEnd::Stopped;
            }
            if (hooks.starting) {
                hooks.starting(setting);
            }
            const CharacterisedBlock block = run.Measure(setting);
            if (!BoardAnswers(services, before)) {
                return CharacterisationEnd::NoBoard;
            }
            hooks.finished(block);
        }
    } catch (const SettingStopped&) {
        return CharacterisationEnd::Stopped;
    }
    return CharacterisationEnd::Complete;
}

}  // namespace

const RegisterMap::Field& ScaleField(Converter converter) {
    return converter == Converter::Main ? RegisterMap::InputRange : RegisterMap::Reference;
}

const RegisterMap::Field& ChannelField(Converter converter) {
    return converter == Converter::Main ? RegisterMap::MainChannel : RegisterMap::AuxChannel;
}

std::vector<CharacterisedSetting> SettingsOf(const CharacterisationPlan& plan) {
    std::vector<CharacterisedSetting> settings;
    for (const Polarity polarity : plan.polarities) {
        for (const std::int32_t word : plan.filterWords) {
            for (const std::int32_t range : plan.ranges) {
                settings.push_back({polarity, word, range});
            }
        }
    }
    return settings;
}

std::chrono::duration<double> DurationOf(const CharacterisationPlan& plan,
                                         const CharacterisedSetting& setting) {
    const int conversions =
        plan.settle + plan.count + (plan.calibrate ? calibrations * conversionsOfCalibration : 0);
    return std::chrono::duration<double>(conversions / UpdateRateOf(setting.filterWord));
}

CharacterisationEnd Characterise(Services& services, const CharacterisationPlan& plan,
                                 std::span<const CharacterisedSetting> settings,
                                 const CharacterisationHooks& hooks) {
    const Configuration before = ReadSteadyConfiguration(services.port, services.state.PortAddress);
    const auto restore = [&] {
        const std::vector<RegisterMismatch> mismatches =
            MismatchesIn(RestoreConfiguration(services.port, services.state.PortAddress, before));
        if (hooks.restored) {
            hooks.restored(mismatches);
        }
    };
    try {
        const CharacterisationEnd end = RunThrough(services, plan, settings, hooks, before);
        restore();
        return end;
    } catch (...) {
        restore();
        throw;
    }
}

}  // namespace vx3260
