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
        return LoadResults(path).plan == plan ? FolderContents::SamePlan
                                              : FolderContents::OtherPlan;
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
        Resume(beginning.plan);
    } else if (hasResults) {
        Delete(LoadResults(path_));
    } else if (use != FolderUse::Replace) {
        RefuseFilesOf(path_);
    }
    Save();
}

void ResultsFolder::Resume(const CharacterisationPlan& plan) {
    CharacterisationResults old = LoadResults(path_);
    if (old.plan != plan) {
        throw FileAccessError("the folder " + path_ +
                              " holds a characterisation with other arguments; --resume goes on "
                              "with the same ones only");
    }
    results_ = std::move(old);
    std::erase_if(results_.rows, [this](const CharacterisationRow& row) {
        return !row.failure.empty() ||
               !FileExists(PathIn(path_, DataFileName(results_.plan.converter, row.setting)));
    });
}

void ResultsFolder::Delete(const CharacterisationResults& old) const {
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
