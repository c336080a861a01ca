#pragma once

#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>

#include <QCommandLineParser>

// The option --bundle PATH that commands about the database share.

namespace BundleOption {
/// Adds it.
void add(QCommandLineParser *parser);
/// Fails if something is wrong with the path given.
Outcome<> check(const QCommandLineParser &parser);
/// The bundle at the path given, else the user's default bundle.
KTDatabaseBundle bundleIn(const QCommandLineParser &parser);

/// Makes the folder for the application's own bundles, with those on the way to it (XDG Base
/// Directory rules); the folders of other bundles are the user's business.
void needFolderOf(const KTDatabaseBundle &bundle);
} // namespace BundleOption
