// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "characterisation/Results.h"

namespace vx3260 {

/// What to do with a folder that holds a characterisation already.
enum class FolderUse {
    New,      ///< refuse it
    Resume,   ///< go on, if it is one of the same plan
    Replace,  ///< delete that one's files
};

/// What there is under the path of a folder.
enum class FolderContents {
    Nothing,     ///< an empty folder, or none
    OtherFiles,  ///< no characterisation
    SamePlan,    ///< one that can be resumed
    OtherPlan,
};

/// Throws FileAccessError. A characterisation that cannot be read counts as other files.
FolderContents ContentsOf(const std::string& path, const CharacterisationPlan& plan);

/// Whether a folder holds a characterisation, readable or not.
bool HasResults(const std::string& folder);

/// The folder of a characterisation: `characterisation.json`, `table.csv`, and for each measured
/// setting a data file and its conditions. All of it is on the disk after each Add.
class ResultsFolder {
  public:
    /// Makes the folder, or looks at the one there is. Throws FileAccessError and BadDataError; a
    /// folder with other files in it is refused unless these are to be replaced.
    ResultsFolder(std::string path, const CharacterisationResults& beginning, FolderUse use);

    const CharacterisationResults& Results() const { return results_; }
    const std::string& Path() const { return path_; }

    /// The settings of the plan that have not been measured, or failed.
    std::vector<CharacterisedSetting> Remaining() const;

    /// Of a characterisation that goes on: fields that the sweep sets and that held something else
    /// when it was begun, "filter word was 69 and is 13". A run that was killed leaves them so.
    const std::vector<std::string>& Changed() const { return changed_; }

    /// Writes the block's files, the results and the table.
    void Add(const CharacterisedBlock& block);

  private:
    void Resume(const CharacterisationResults& beginning);
    void DeleteResults() const;
    void Save() const;

    std::string path_;
    CharacterisationResults results_;
    std::vector<std::string> changed_;
};

/// The results in a folder. Throws FileAccessError and BadDataError.
CharacterisationResults LoadResults(const std::string& folder);

/// The path of a file in a folder.
std::string PathIn(const std::string& folder, const std::string& name);

}  // namespace vx3260
