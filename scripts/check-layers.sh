#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The layers are what add_layer() and add_form_layer() name in the folders' CMakeLists.txt. Fails
# when a file under src/ includes one of a layer that its own layer does not link, directly or
# through others, or a header of Qt, QCustomPlot, CLI11, Boost or Eigen in a layer that does not link that;
# when layers link in a circle; and when the table of floors in docs/ARCHITECTURE.md says otherwise, of
# the programs in src/CMakeLists.txt too.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t lists < <(find src -mindepth 2 -name CMakeLists.txt | sort)
awk '
    function Fault(text) { print text; bad = 1 }
    function LayerOf(path,    stem, folder) {
        stem = folder = path
        sub(/\.[a-z.]+$/, "", stem)
        if (stem in owner) return owner[stem]
        sub(/\/?[^\/]*$/, "", folder)
        return folder in firstLayer ? firstLayer[folder] : ""
    }
    # All that a layer links, directly or not: reached[layer, library].
    function Follow(layer, from,    names, i) {
        for (i = split(links[from], names); i > 0; i--) {
            if ((layer, names[i]) in reached) continue
            reached[layer, names[i]] = 1
            if (names[i] !~ /^(Qt6|QCustomPlot)/) Follow(layer, names[i])
            else if (names[i] != "Qt6::Core") qt[layer] = "yes"
            else if (qt[layer] != "yes") qt[layer] = "Core"
        }
    }
    function CheckLayer(layer,    names, i) {
        if ((layer, layer) in reached) Fault(layer " links itself through others")
        for (i = split(links[layer], names); i > 0; i--) {
            if (names[i] ~ /^vx_/ && !(names[i] in home))
                Fault(layer " links " names[i] ", which no folder makes")
        }
    }
    function CheckInclude(line,    file, from, to, target) {
        match(line, /^src\/[^:]+/)
        file = substr(line, 5, RLENGTH - 4)
        if (file !~ /\//) return   # the programs may include everything
        from = LayerOf(file)
        if (from == "") { Fault(file ": its folder has no layer"); return }
        if (line ~ /#include <Q/ && qt[from] == "no") Fault(line ": " from " does not link Qt")
        CheckLibrary(line, from, "#include <CLI/", "CLI11::CLI11")
        CheckLibrary(line, from, "#include <boost/", "Boost::headers")
        CheckLibrary(line, from, "Eigen/", "Eigen3::Eigen")
        CheckLibrary(line, from, "#include <qcustomplot", "QCustomPlotQt6::QCustomPlotQt6")
        if (match(line, /"[^"]+\/[^"]+"/) == 0) return
        target = substr(line, RSTART + 1, RLENGTH - 2)
        to = LayerOf(target)
        if (to == "") Fault(line ": no layer has " target)
        else if (to != from && !((from, to) in reached)) Fault(line ": " from " does not link " to)
    }
    function CheckLibrary(line, from, include, library) {
        if (index(line, include) > 0 && !((from, library) in reached))
            Fault(line ": " from " does not link " library)
    }
    # The row of the programs: their sources, and for each of them the folders that it links and Qt.
    function CheckPrograms(row,    cell, names, folders, uses, i, j, count, program, libraries, found) {
        gsub(/ *\| */, "|", row)
        gsub(/`/, "", row)
        split(row, cell, "|")
        split(cell[5], folders, "; ")
        split(cell[6], uses, "; ")
        for (i = split(cell[3], names, ", "); i > 0; i--) {
            program = names[i]
            sub(/\.cpp$/, "", program)
            found = ""
            for (j = split(links[program] linksOfPrograms, libraries); j > 0; j--)
                found = found " " home[libraries[j]]
            found = Sorted(substr(found, 2), " ")
            if (found != Sorted(folders[i], ", "))
                Fault(table program " links:" found ", and not: " folders[i])
            Follow(program, program)
            if (qt[program] != uses[i])
                Fault(table program ", Qt: " qt[program] ", and not: " uses[i])
        }
    }
    # A row of the table: floor, folder, what it holds, the folders that it links, Qt.
    function CheckRow(row,    cell, folder, i) {
        gsub(/ *\| */, "|", row)
        gsub(/`/, "", row)
        split(row, cell, "|")
        folder = cell[3]
        sub(/\/$/, "", folder)
        if (!(folder in firstLayer)) { Fault(table folder "/ has no layer"); return }
        floor[folder] = cell[2]
        if (Sorted(cell[5], ", ") != Sorted(linkedFolders[folder], " "))
            Fault(table folder "/ links:" linkedFolders[folder] ", and not: " cell[5])
        if (cell[6] != folderQt[folder])
            Fault(table folder "/, Qt: " folderQt[folder] ", and not: " cell[6])
    }
    function Sorted(text, separator,    names, count, i, j, swap, result) {
        count = text == "-" ? 0 : split(text, names, separator)
        for (i = 1; i <= count; i++)
            for (j = i; j > 1 && names[j] < names[j - 1]; j--) {
                swap = names[j]; names[j] = names[j - 1]; names[j - 1] = swap
            }
        for (i = 1; i <= count; i++) result = result " " names[i]
        return result
    }
    function GatherFolders(    layer, folder, names, i, seen) {
        for (layer in home) {
            folder = home[layer]
            if (!(folder in folderQt)) folderQt[folder] = qt[layer]
            else if (folderQt[folder] != qt[layer]) folderQt[folder] = "both"
            for (i = split(links[layer], names); i > 0; i--) {
                if (!(names[i] in home) || home[names[i]] == folder) continue
                if ((folder, home[names[i]]) in seen) continue
                seen[folder, home[names[i]]] = 1
                linkedFolders[folder] = linkedFolders[folder] " " home[names[i]]
            }
        }
    }
    function CheckFloors(    folder, names, i) {
        for (folder in firstLayer) {
            if (!(folder in floor)) { Fault(table "no row for " folder "/"); continue }
            for (i = split(linkedFolders[folder], names); i > 0; i--)
                if (names[i] in floor && floor[names[i]] + 0 >= floor[folder] + 0)
                    Fault(table folder "/ must stand above " names[i] "/, which it links")
        }
    }

    FILENAME == "src/CMakeLists.txt" {
        gsub(/"[^"]*"/, "")
        gsub(/[()]/, " ")
        for (i = 3; i <= NF; i++) {
            if ($i !~ /^vx_/) continue
            if ($1 == "add_program") links[$2] = links[$2] " " $i
            else if ($1 == "target_link_libraries") linksOfPrograms = linksOfPrograms " " $i
        }
        next
    }
    FILENAME ~ /CMakeLists\.txt$/ {
        folder = FILENAME
        gsub(/^src\/|\/CMakeLists\.txt$/, "", folder)
        sub(/#.*/, "")
        gsub(/[()]/, " & ")
        for (i = 1; i <= NF; i++) {
            if ($i == "target_link_libraries") Fault(FILENAME ": name libraries after LINK only")
            if ($i == "(") continue
            else if ($i == ")") list = ""
            else if ($i ~ /^add_(form_)?layer$/) list = "name"
            else if (list == "name") {
                layer = $i
                list = "SOURCES"
                home[layer] = folder
                qt[layer] = "no"
                if (!(folder in firstLayer)) firstLayer[folder] = layer
            }
            else if (list != "" && $i ~ /^(SOURCES|LINK)$/) list = $i
            else if (list == "LINK") links[layer] = links[layer] " " $i
            else if (list == "SOURCES") { sub(/\.[a-z]+$/, "", $i); owner[folder "/" $i] = layer }
        }
        next
    }
    /^src\// { includes[++includeCount] = $0 }
    /^\| [0-9]+ \| `[a-z\/]+\/` \|/ { rows[++rowCount] = $0 }
    /^\| [0-9]+ \| `[a-z0-9-]+\.cpp`/ { programRow = $0 }
    END {
        table = "docs/ARCHITECTURE.md, table of floors: "
        for (layer in home) Follow(layer, layer)
        for (layer in home) CheckLayer(layer)
        GatherFolders()
        for (i = 1; i <= includeCount; i++) CheckInclude(includes[i])
        for (i = 1; i <= rowCount; i++) CheckRow(rows[i])
        if (programRow == "") Fault(table "no row for the programs")
        else CheckPrograms(programRow)
        CheckFloors()
        exit bad
    }' src/CMakeLists.txt "${lists[@]}" docs/ARCHITECTURE.md \
    <(grep -rnE '^#include' src --include='*.h' --include='*.cpp' --include='*.h.in')
