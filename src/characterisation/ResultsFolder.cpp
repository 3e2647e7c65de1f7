// SPDX-License-Identifier: GPL-3.0-or-later
#include "characterisation/ResultsFolder.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <algorithm>
#include <utility>

#include "characterisation/Tables.h"
#include "files/CodeFile.h"
#include "files/CodeText.h"
#include "files/ConditionsFile.h"
#include "link/Configuration.h"
#include "link/RegisterLookup.h"
#include "numbers/FileErrors.h"

namespace vx3260 {
namespace {

constexpr const char* resultsName = "characterisation.json";
constexpr const char* tableName = "table.csv";

constexpr SizeLimit sizeLimit{std::size_t{1} << 24U, "that is not a characterisation"};

QDir DirOf(const std::string& path) {
    return QDir(QString::fromStdString(path));
}

void MakeFolder(const std::string& path) {
    if (!DirOf(path).mkpath(QStringLiteral("."))) {
        throw FileAccessError("cannot make the folder " + path);
    }
}

/// Whether a field is one that the sweep sets, of the converter or of the chip as a whole, or of
/// the other converter.
bool IsSetBy(const CharacterisationPlan& plan, const FieldDifference& difference) {
    const auto is = [&difference](const RegisterMap::RegisterAccess& access) {
        return difference.description.access.readByte == access.readByte;
    };
    const RegisterMap::Field* const own[] = {&RegisterMap::Enable, &ChannelField(plan.converter),
                                             &ScaleField(plan.converter), &RegisterMap::Polarity};
    if (is(TraitsOf(plan.converter).control)) {
        return std::ranges::any_of(own, [&difference](const RegisterMap::Field* field) {
            return field->name == difference.field.name;
        });
    }
    return is(RegisterMap::Filter) || difference.field.name == RegisterMap::OperatingMode.name ||
           is(TraitsOf(OtherConverter(plan.converter)).control) ||
           (IsCoefficient(difference.description) && plan.calibrate);
}

std::string ChangeText(const FieldDifference& difference) {
    const auto text = [&difference](std::int32_t code) {
        return RegisterMap::TextOfCode(difference.field, code);
    };
    return std::string(difference.description.name) + " " + std::string(difference.field.name) +
           " was " + text(difference.left) + " and is " + text(difference.right);
}

void RefuseFilesOf(const std::string& path) {
    if (!DirOf(path).isEmpty()) {
        throw FileAccessError("the folder " + path +
                              " is not empty; choose another, or --force to write into it");
    }
}

}  // namespace

std::string PathIn(const std::string& folder, const std::string& name) {
    return QDir::toNativeSeparators(DirOf(folder).filePath(QString::fromStdString(name)))
        .toStdString();
}

CharacterisationResults LoadResults(const std::string& folder) {
    const std::string path = PathIn(folder, resultsName);
    const std::string text = LoadBytes(path, sizeLimit);
    try {
        return ParseResults(text);
    } catch (const BadDataError& error) {
        throw BadDataError(path + ": " + error.what());
    }
}

bool HasResults(const std::string& folder) {
    return FileExists(PathIn(folder, resultsName));
}

FolderContents ContentsOf(const std::string& path, const CharacterisationPlan& plan) {
    if (HasResults(path)) {
        try {
            return LoadResults(path).plan == plan ? FolderContents::SamePlan
                                                  : FolderContents::OtherPlan;
        } catch (const BadDataError&) {
            return FolderContents::OtherFiles;
        }
    }
    return DirOf(path).isEmpty() || !FileExists(path) ? FolderContents::Nothing
                                                      : FolderContents::OtherFiles;
}

ResultsFolder::ResultsFolder(std::string path, const CharacterisationResults& beginning,
                             FolderUse use)
    : path_(std::move(path)), results_(beginning) {
    const bool hasResults = HasResults(path_);
    MakeFolder(path_);
    if (hasResults && use == FolderUse::New) {
        throw FileAccessError("the folder " + path_ +
                              " holds a characterisation; --resume goes on with it, --force "
                              "replaces it");
    }
    if (hasResults && use == FolderUse::Resume) {
        Resume(beginning);
    } else if (hasResults) {
        DeleteResults();
    } else if (use != FolderUse::Replace) {
        RefuseFilesOf(path_);
    }
    Save();
}

void ResultsFolder::Resume(const CharacterisationResults& beginning) {
    CharacterisationResults old = LoadResults(path_);
    if (old.plan != beginning.plan) {
        throw FileAccessError("the folder " + path_ +
                              " holds a characterisation with other arguments; --resume goes on "
                              "with the same ones only");
    }
    for (const FieldDifference& difference :
         DifferencesBetween(ConfigurationOf(old.registers), ConfigurationOf(beginning.registers))) {
        if (IsSetBy(beginning.plan, difference)) {
            changed_.push_back(ChangeText(difference));
        } else {
            throw FileAccessError("the characterisation in the folder " + path_ +
                                  " was begun with another setting: " + ChangeText(difference) +
                                  "; set it back to go on");
        }
    }
    results_ = std::move(old);
    std::erase_if(results_.rows, [this](const CharacterisationRow& row) {
        return !row.failure.empty() ||
               !FileExists(PathIn(path_, DataFileName(results_.plan.converter, row.setting)));
    });
}

/// Results that cannot be read name no files.
void ResultsFolder::DeleteResults() const {
    CharacterisationResults old;
    try {
        old = LoadResults(path_);
    } catch (const BadDataError&) {
        return;
    }
    for (const CharacterisationRow& row : old.rows) {
        const std::string data = PathIn(path_, DataFileName(old.plan.converter, row.setting));
        for (const std::string& file : {data, ConditionsPath(data)}) {
            QFile::remove(QString::fromStdString(file));
        }
    }
}

std::vector<CharacterisedSetting> ResultsFolder::Remaining() const {
    std::vector<CharacterisedSetting> remaining;
    for (const CharacterisedSetting& setting : SettingsOf(results_.plan)) {
        if (results_.RowAt(setting) == nullptr) {
            remaining.push_back(setting);
        }
    }
    return remaining;
}

void ResultsFolder::Add(const CharacterisedBlock& block) {
    if (block.failure.empty()) {
        const std::string data =
            PathIn(path_, DataFileName(results_.plan.converter, block.setting));
        ReplaceFile(data, FormatCodes(block.codes, Notation::Decimal));
        ReplaceFile(ConditionsPath(data), FormatConditions(block.conditions, block.codes));
    }
    results_.rows.push_back(RowOf(block));
    Save();
}

void ResultsFolder::Save() const {
    ReplaceFile(PathIn(path_, resultsName),
                QJsonDocument(ResultsObject(results_)).toJson().toStdString());
    ReplaceFile(PathIn(path_, tableName), TableCsv(results_));
}

}  // namespace vx3260
