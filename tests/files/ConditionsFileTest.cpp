// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/ConditionsFile.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "numbers/FilePath.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

const std::vector<std::int32_t> codes{8388608, 8388611};

BlockConditions SomeConditions() {
    BlockConditions conditions;
    conditions.converter = Converter::Main;
    conditions.registers.Set(RegisterMap::MainControl, 0x8F);
    conditions.registers.Set(RegisterMap::Filter, 69);
    conditions.referenceVoltage = 3.3F;
    conditions.board = {"Simulated board", "port 0x378", {"bit-flip=5"}};
    conditions.start = UtcTime(std::chrono::milliseconds(1700000000123));
    conditions.end = conditions.start + std::chrono::seconds(1);
    conditions.outcome = ReadingEnd::Stopped;
    conditions.meanInterval = 0.0505;
    conditions.program = "a program";
    return conditions;
}

TEST(ConditionsFile, ComesBackAsItWasWritten) {
    const BlockConditions written = SomeConditions();
    const BlockConditions read = ParseConditions(FormatConditions(written, codes), codes);
    EXPECT_EQ(ConditionsObject(read), ConditionsObject(written));
    EXPECT_EQ(read.referenceVoltage, 3.3F);
    EXPECT_EQ(read.registers.ValueOf(RegisterMap::Filter), 69);
    EXPECT_EQ(read.registers.ValueOf(RegisterMap::Mode), std::nullopt);
    EXPECT_EQ(read.board, written.board);
    EXPECT_EQ(read.start, written.start);
    EXPECT_EQ(read.Interval(), 0.0505);
}

TEST(ConditionsFile, OneThatCannotBeUsedSaysWhy) {
    const Folder folder;
    const std::string data = folder.Path("block.dat");
    const std::string good = FormatConditions(SomeConditions(), codes);
    const auto warning = [&](Converter converter = Converter::Main) {
        const LoadedConditions loaded = LoadConditions(data, converter, codes);
        EXPECT_EQ(loaded.conditions.has_value(), loaded.warning.empty());
        return loaded.warning;
    };
    const auto replaced = [&good](const std::string& from, const std::string& to) {
        std::string text = good;
        return text.replace(text.find(from), from.size(), to);
    };
    EXPECT_EQ(LoadConditions(data, Converter::Main, codes).warning, "") << "no file";
    folder.Make("block.dat.json", good);
    EXPECT_EQ(warning(), "");
    EXPECT_NE(warning(Converter::Aux).find("of the other ADC"), std::string::npos);
    const std::pair<std::string, std::string> bad[] = {
        {"", "at byte"},
        {"[]", "not a conditions file"},
        {good.substr(0, good.size() / 2), "at byte"},
        {replaced("\"version\": 1", "\"version\": 2"), "of version 2, newer than"},
        {replaced("\"version\": 1", "\"version\": \"x\""), "no valid version"},
        {FormatConditions(SomeConditions(), std::vector<std::int32_t>{1}), "other codes"},
        {replaced("\"value\": 69", "\"value\": 256"), "\"filter\" has no valid value"},
        {replaced("3.3", "-1"), "\"referenceVoltage\" is not a number above 0"},
        {replaced("3.3", "1e300"), "\"referenceVoltage\" is not a number above 0"},
        {replaced("\"stopped\"", "\"odd\""), "\"odd\" is not a valid value for \"outcome\""},
        {replaced("\"2023", "\"x"), "\"end\" is not a time"},
        {replaced("\"a program\"", "null"), "\"program\" is not a text"},
        {replaced("\"registers\"", "\"others\""), "\"registers\" is missing"},
    };
    for (const auto& [text, reason] : bad) {
        folder.Make("block.dat.json", text);
        EXPECT_NE(warning().find(reason), std::string::npos) << warning();
    }
    std::filesystem::resize_file(FilePath(folder.Path("block.dat.json")), 1U << 30U);
    EXPECT_EQ(warning(), "the conditions of the reading are unknown: " + data +
                             ".json: more than 1048576 bytes; that is not a conditions file");
    std::filesystem::remove(FilePath(folder.Path("block.dat.json")));
    std::filesystem::create_directory(FilePath(folder.Path("block.dat.json")));
    EXPECT_NE(warning(), "");
}

}  // namespace
}  // namespace vx3260::test
