#pragma once

#include "Filter/RecordQuery.h"

#include <QCommandLineParser>

// The options that say which records of a library a command is about: --where, --sort, --columns
// and --limit.

namespace QueryOptions {
void add(QCommandLineParser *parser);
/// Whether one of them is given.
bool areGiven(const QCommandLineParser &parser);
/// Fails if something is wrong with them whatever the library.
Outcome<> check(const QCommandLineParser &parser);
/// What is asked for. Values are read in the user's locale. Fails if the library has no such fields,
/// or they do not read the values.
/// \param base what is wanted anyway; the filter narrows it, all else takes its place.
Outcome<RecordQuery> queryIn(const QCommandLineParser &parser, const Library &library,
                             const RecordQuery &base = {});
} // namespace QueryOptions
