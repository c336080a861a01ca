#pragma once

#include <QMap>
#include <QSet>
#include <QString>

#include <vector>

/// What undoing or redoing a step has changed, for those who show it.
struct StepEffect
{
    /// The numbers of the records that have come, gone or changed, by the names of their tables.
    QMap<QString, std::vector<qint64>> records;
    /// The tables of the libraries that have come, gone, or got other names or fields.
    QSet<QString> libraries;
};
