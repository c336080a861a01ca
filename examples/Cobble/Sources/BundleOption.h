#pragma once

#include <KTUtility/KTDatabaseBundle.h>

#include <QCommandLineParser>

// The option --bundle PATH that commands about the database share.

namespace BundleOption {
/// Adds it.
void add(QCommandLineParser *parser);
/// What is wrong with the path given; nil if nothing is.
QString mistakeIn(const QCommandLineParser &parser);
/// The bundle at the path given, else the user's default bundle.
KTDatabaseBundle bundleIn(const QCommandLineParser &parser);
} // namespace BundleOption
