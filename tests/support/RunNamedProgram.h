#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace testing_support {
/// What a program has found out (see NamedProgram.cpp), and what it has written to the console.
struct NamedProgramResult
{
    QString text(const QString &fact) const { return facts.value(fact).toString(); }
    QStringList texts(const QString &fact) const;

    QJsonObject facts;
    QString console;
};

/// Runs the program that lies beside the tests, in this process's environment.
/// \param environment variables that it has beside these.
NamedProgramResult runNamedProgram(const QJsonArray &steps,
                                   const QMap<QString, QString> &environment = {});
} // namespace testing_support
