// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <vector>

// Test programs kept as text files. A file holds sections, each run in a fresh interpreter:
//
//   //-- what the section shows
//   print "a"; noSuchCommand;
//   //> a
//   //E line 1: Cannot find procedure "noSuchCommand".
//
// The lines "//> " (print output), "//R " (result), "//E " (error), "//W " (warning), "//H "
// (history) and "//S " (stack trace) are the messages expected from the text before them, with \n,
// \t and \\ for what a line cannot hold. Print output that arrives in a row is one message. A
// further text may follow; it runs in the same interpreter.
struct MelStep
{
    std::string text;
    std::vector<std::string> messages; // as the lines above, without "//"
};

struct MelProgram
{
    QString name; // "file: section"
    std::vector<MelStep> steps;
};

// All programs of the folder, in the order of their names.
std::vector<MelProgram> melPrograms();
