// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/ParllioPort.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "ports/OpenPort.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::nanoseconds noPollTime{0};

/// The library is found in a folder that each test chooses.
class ParllioPortTest : public testing::Test {
  protected:
    ~ParllioPortTest() override {
        SetDllDirectoryW(nullptr);
        fs::remove_all(made_);
    }

    /// Chooses the folder with the stand-in of that name.
    static void Choose(const std::string& kind) {
        SetDllDirectoryW((fs::path(PARLLIO_FOLDER) / kind).c_str());
    }

    /// Chooses a folder with a changed copy of the stand-in.
    void ChooseChanged(const std::function<void(std::fstream&)>& change) {
        fs::create_directories(made_);
        fs::copy_file(fs::path(PARLLIO_FOLDER) / "whole" / "parllio.dll", made_ / "parllio.dll",
                      fs::copy_options::overwrite_existing);
        std::fstream file(made_ / "parllio.dll", std::ios::binary | std::ios::in | std::ios::out);
        change(file);
        SetDllDirectoryW(made_.c_str());
    }

    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;

  private:
    fs::path made_ = fs::temp_directory_path() / L"vx3260 ä 測";
};

/// Marks it as 32-bit code in its header.
void Make32Bit(std::fstream& file) {
    std::uint32_t header = 0;
    file.seekg(0x3C);
    file.read(reinterpret_cast<char*>(&header), sizeof header);
    file.seekp(header + 4);
    file.write("\x4C\x01", 2);
}

void Spoil(std::fstream& file) {
    file.write("no library", 10);
}

TEST_F(ParllioPortTest, StartsUpAndReadsTheBoard) {
    Choose("whole");
    ParllioPort port(noPollTime);
    Services services{port, messages, system, state};
    system.version = {2, 5, 0};
    StartUp(services);
    EXPECT_TRUE(messages.shown.empty()) << messages.shown[0].detail;
    EXPECT_EQ(state.PortCount, 1);
    EXPECT_EQ(state.PortAddress, 888);
    EXPECT_EQ(Register(port, state.PortAddress, RegisterMap::MainControl).ReadReg(), 0x87);
    EXPECT_EQ(ReadBlockFrom(port, state, Converter::Main, 5), ReadingEnd::Complete);
    EXPECT_NEAR(state.MainCodes[4], mainCodeAtStart, 99);

    const std::vector<PortListing> ports = ListPorts({});
    ASSERT_EQ(ports.size(), 1U);
    EXPECT_EQ(ports[0].address, 888);
    EXPECT_EQ(ports[0].claim, PortClaim::Possible);
    EXPECT_EQ(port.ClaimParallelPort(2, -1), 0);
    EXPECT_TRUE(port.FailureDetail().starts_with("The port library could not claim port 2."));
    ParallelPortInfo info;
    EXPECT_EQ(port.GetParallelPortInfo(2, info), 0);
    EXPECT_EQ(port.FailureDetail(), "The port library knows no port 2.");
}

TEST_F(ParllioPortTest, ReportsWhatIsWrongWithTheLibrary) {
    const struct {
        std::function<void()> choose;
        const char* detail;
    } cases[] = {
        {[] { SetDllDirectoryW(nullptr); }, "parllio.dll was not found."},
        {[] { Choose("incomplete"); }, "parllio.dll lacks GetParallelPortInfo, InByte"},
        {[this] { ChooseChanged(Make32Bit); }, "ä 測\\parllio.dll is a 32-bit library."},
        {[this] { ChooseChanged(Spoil); },
         "ä 測\\parllio.dll is not a library for 64-bit Windows."},
    };
    for (const auto& c : cases) {
        c.choose();
        ParllioPort port(noPollTime);
        EXPECT_EQ(port.ClaimParallelPort(1, -1), 0);
        EXPECT_NE(port.FailureDetail().find(c.detail), std::string::npos) << port.FailureDetail();
        EXPECT_EQ(port.InByte(889), 0xFF);
        EXPECT_EQ(port.GetParallelPortCount(), 0);
    }
}

TEST_F(ParllioPortTest, ReadTakesThePollTime) {
    using namespace std::chrono;
    Choose("whole");
    ParllioPort port(milliseconds(40));
    const auto start = steady_clock::now();
    port.InByte(889);
    EXPECT_GE(steady_clock::now() - start, milliseconds(40));
}

}  // namespace
}  // namespace vx3260::test
