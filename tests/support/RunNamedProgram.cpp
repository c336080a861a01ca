#include "RunNamedProgram.h"

#include "TestSupport.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace testing_support {
QStringList NamedProgramResult::texts(const QString &fact) const
{
    return facts.value(fact).toVariant().toStringList();
}

NamedProgramResult runNamedProgram(const QJsonArray &steps,
                                   const QMap<QString, QString> &environment)
{
    needApplication();
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (auto each = environment.begin(); each != environment.end(); ++each)
        variables.insert(each.key(), each.value());
    process.setProcessEnvironment(variables);
    const QString folder = QFileInfo(QFileInfo(u"/proc/self/exe"_s).symLinkTarget()).path();
    process.start(folder + u"/NamedProgram",
                  {QString::fromUtf8(QJsonDocument(steps).toJson(QJsonDocument::Compact))});
    EXPECT_TRUE(process.waitForFinished()) << process.errorString().toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    return {QJsonDocument::fromJson(process.readAllStandardOutput()).object(),
            QString::fromUtf8(process.readAllStandardError())};
}
} // namespace testing_support
