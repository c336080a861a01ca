// How much memory an import takes, whatever the size of the file.

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QProcess>

using namespace Qt::StringLiterals;
using testing_support::FileTree;

#ifndef __SANITIZE_ADDRESS__
TEST(ImportMemory, DoesNotGrowWithTheFile)
{
    const FileTree tree;
    testing_support::useFreshHome();
    QByteArray contents = "Number,Text\n";
    const QByteArray text(1'000, 'x');
    for (int row = 1; row <= 60'000; ++row)
        contents += QByteArray::number(row) + ',' + text + '\n';
    tree.add(u"large.csv"_s, contents);
    contents.clear();
    // All that a process may write to, in kB: code is no part of it.
    const QString script = u"ulimit -d 110000; exec \"$0\" import \"$1\" --bundle \"$2\""_s;
    QProcess process;
    process.start(u"/bin/sh"_s, {u"-c"_s, script, QStringLiteral(COBBLE_EXECUTABLE),
                                 tree.path(u"large.csv"_s), tree.path(u"b.cobbledb"_s)});
    ASSERT_TRUE(process.waitForFinished(-1));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    EXPECT_TRUE(process.readAllStandardOutput().contains("Stored 60000 records"));
}
#endif
