// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/Recording.h"

#include <gtest/gtest.h>

#include <cmath>

#include "acquisition/RecordingIntervals.h"
#include "acquisition/RecordingLines.h"
#include "link/Register.h"
#include "link/Reset.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

/// A board whose cable is pulled for a while.
class PluggedPort final : public WrappedPort {
  public:
    explicit PluggedPort(SimulatedPort*& inner) : WrappedPort(Make(inner)) {}

    void OutByte(std::int16_t address, std::int16_t value) override {
        if (plugged) {
            Inner().OutByte(address, value);
        }
    }
    std::int16_t InByte(std::int16_t address) override {
        return plugged ? Inner().InByte(address) : std::int16_t{255};
    }

    bool plugged = true;

  private:
    static std::unique_ptr<ParallelPort> Make(SimulatedPort*& inner) {
        auto port = std::make_unique<SimulatedPort>();
        inner = port.get();
        return port;
    }
};

struct RecordingTest : testing::Test {
    RecordingTest() {
        StartUp(services);
        Configure();
        plan.count = 50;
        hooks.conversion = [this](const RecordingMoment& moment,
                                  std::span<const RecordedCode> codes) {
            moments.push_back(moment);
            mainCodes.push_back(codes.front().code);
            auxCodes.push_back(codes.back().code);
        };
        hooks.report = [this](const RecordingMoment&, const std::string& text) {
            reports.push_back(text);
        };
    }

    void Configure() {
        Write(RegisterMap::Mode, RegisterMap::PowerDown);
        Write(RegisterMap::Filter, 13);
        Write(RegisterMap::MainControl, 0x87);
        Write(RegisterMap::AuxControl, 0xB9);
        Write(RegisterMap::Mode, RegisterMap::ContinuousConversion);
    }
    void Write(const RegisterMap::RegisterAccess& access, std::int32_t value) {
        Register(port, state.PortAddress, access).WriteValue(value);
    }
    RecordingEnd Run() {
        return Record(services, plan, ReadConfiguration(port, state.PortAddress), hooks);
    }
    /// Pulls the cable after so many conversions, and lets the board lose its settings.
    void PullAfter(std::int64_t conversions, bool reset) {
        hooks.afterEach = [this, conversions, reset](const RecordingProgress& now) {
            progress = now;
            if (now.conversions == conversions && now.timeOuts == 0) {
                port.plugged = false;
                if (reset) {
                    HardwareReset(*simulated, 888);
                }
            }
        };
        hooks.pause = [this](std::chrono::milliseconds length) {
            pauses.push_back(length.count());
            port.plugged = pauses.size() >= 8;
        };
    }

    SimulatedPort* simulated = nullptr;
    PluggedPort port{simulated};
    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
    Services services{port, messages, system, state, "Simulated board"};
    RecordingPlan plan;
    RecordingHooks hooks;
    RecordingProgress progress;
    std::vector<RecordingMoment> moments;
    std::vector<double> mainCodes;
    std::vector<double> auxCodes;
    std::vector<std::string> reports;
    std::vector<std::int64_t> pauses;
};

TEST_F(RecordingTest, BothConvertersOfOneConversionByTheBoardsClock) {
    plan.converters = {Converter::Main, Converter::Aux};
    plan.start = UtcTime(std::chrono::milliseconds(1000));
    EXPECT_EQ(Run(), RecordingEnd::Complete);
    ASSERT_EQ(moments.size(), 50U);
    for (std::size_t i = 0; i < moments.size(); ++i) {
        EXPECT_NEAR(mainCodes[i], mainCodeAtStart, 300);
        EXPECT_NEAR(auxCodes[i], auxCodeAtStart, 10);
        EXPECT_NEAR(moments[i].elapsed - moments[0].elapsed,
                    static_cast<double>(i) * 13 * 24 / 32768, 1e-4);
        EXPECT_NEAR(static_cast<double>(moments[i].utc.time_since_epoch().count()),
                    1000 + moments[i].elapsed * 1000, 1.1);
    }
}

TEST_F(RecordingTest, UtcFollowsTheSystemsClock) {
    using std::chrono::milliseconds;
    plan.count = 500;  // 4.8 s
    plan.clock = [this, start = port.Now()] {
        const auto now = std::chrono::floor<milliseconds>(port.Now() - start);
        return UtcTime(now + (now < milliseconds(2500) ? now / 10 : milliseconds(3600000)));
    };
    EXPECT_EQ(Run(), RecordingEnd::Complete);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_TRUE(reports[0].starts_with("the system's clock went on by 3599.")) << reports[0];
    for (const RecordingMoment& moment : moments) {
        const double ahead =
            static_cast<double>(moment.utc.time_since_epoch().count()) / 1000 - moment.elapsed;
        const double wanted = moment.elapsed < 3 ? moment.elapsed / 10 : 3600;
        EXPECT_NEAR(ahead, wanted, moment.elapsed > 2.5 && moment.elapsed < 3.2 ? 3600 : 0.12);
    }
}

TEST_F(RecordingTest, SurvivesAPulledCableWithGrowingPauses) {
    PullAfter(20, false);
    EXPECT_EQ(Run(), RecordingEnd::Complete);
    EXPECT_EQ(pauses,
              (std::vector<std::int64_t>{1000, 2000, 4000, 8000, 16000, 32000, 60000, 60000}));
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[0],
              "time-out: no data-ready; the board does not answer; the last code was discarded; "
              "trying again");
    EXPECT_TRUE(reports[1].starts_with("readings again after 8 time-outs, 18")) << reports[1];
    EXPECT_EQ(mainCodes.size(), 50U);
    EXPECT_NEAR(static_cast<double>(progress.missed + progress.conversions) * 13 * 24 / 32768,
                progress.moment.elapsed, 0.03);
    EXPECT_FALSE(progress.failing);
    EXPECT_GT(moments.back().elapsed, 183);
    for (const double code : mainCodes) {
        EXPECT_NEAR(code, mainCodeAtStart, 300);
    }
}

TEST_F(RecordingTest, APauseEndsWithTheDuration) {
    PullAfter(20, false);
    plan.duration = 5;
    EXPECT_EQ(Run(), RecordingEnd::Complete);
    ASSERT_EQ(pauses.size(), 3U);
    EXPECT_LT(pauses[2], 4000);
    EXPECT_NEAR(progress.moment.elapsed, 5, 0.01);
    EXPECT_EQ(progress.conversions, 19);
    EXPECT_NEAR(static_cast<double>(progress.missed), 5 * 32768.0 / 24 / 13 - 19, 2);
    EXPECT_TRUE(progress.failing);
}

TEST_F(RecordingTest, AnotherReasonOfAnOutageIsReported) {
    PullAfter(20, true);
    plan.duration = 1000;
    Run();
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[1].substr(0, reports[1].find(',')),
              "still no readings: these registers do not hold the settings any more: "
              "mode")
        << reports[1];
}

TEST_F(RecordingTest, SettingsThatWereLostAreRestoredOnRequestOnly) {
    for (const bool reset : {false, true}) {
        plan.resetOnTimeout = reset;
        plan.duration = 1000;
        moments.clear();
        pauses.clear();
        PullAfter(20, true);
        Configure();
        EXPECT_EQ(Run(), RecordingEnd::Complete);
        EXPECT_EQ(moments.size(), reset ? 50U : 19U);
        EXPECT_EQ(ReadRegister(port, 888, RegisterMap::Filter), reset ? 13 : 0x45);
    }
}

TEST_F(RecordingTest, StopAndMissedConversions) {
    plan.count.reset();
    hooks.afterEach = [this](const RecordingProgress& now) {
        progress = now;
        for (int i = 0; now.conversions == 10 && i < 7000; ++i) {
            port.InByte(889);  // 28 ms, three conversions
        }
    };
    hooks.stopRequested = [this] { return progress.conversions == 30; };
    EXPECT_EQ(Run(), RecordingEnd::Stopped);
    EXPECT_EQ(moments.size(), 30U);
    EXPECT_EQ(progress.missed, 2);
}

TEST_F(RecordingTest, IntervalsAndLines) {
    std::vector<std::string> lines;
    plan.count = 500;
    plan.converters = {Converter::Main, Converter::Aux};
    const RecordingLines format({MainConditions(2.5F, 7, Polarity::Bipolar),
                                 AuxConditions(2.5F, AuxFullScale::Reference, Polarity::Unipolar)},
                                1.0F);
    std::int64_t count = 0;
    double sum = 0;
    RecordingIntervals intervals(
        1, 0,
        [&](const RecordingMoment& start, Converter converter, const IntervalFigures& figures) {
            lines.push_back(format.Line(start, converter, figures));
            if (converter == Converter::Main) {
                count += figures.Count();
                sum += figures.Mean() * static_cast<double>(figures.Count());
            }
        });
    double total = 0;
    hooks.conversion = [&](const RecordingMoment& moment, std::span<const RecordedCode> codes) {
        intervals.Add(moment, codes);
        total += codes.front().code;
    };
    Run();
    intervals.Finish();
    EXPECT_EQ(lines.size(), 10U);  // 4.76 s
    EXPECT_EQ(count, 500);
    EXPECT_NEAR(sum, total, 1e-3);

    IntervalFigures figures;
    for (const std::int32_t code : {8388610, 8388606, 8388608}) {
        figures.Add(code);
    }
    const RecordingMoment moment{UtcTime(std::chrono::milliseconds(1700000000007)), 3};
    EXPECT_EQ(format.Line(moment, Converter::Main, figures),
              "2023-11-14T22:13:20.007Z,3.000000,main,3,8388608.0000,2.0000,8388606,8388610,"
              "0.0000000000,0.0000006104,");
    EXPECT_EQ(format.Line(moment, {Converter::Aux, 7917}),
              "2023-11-14T22:13:20.007Z,3.000000,aux,7917,0.302010,28.860");
}

}  // namespace
}  // namespace vx3260::test
