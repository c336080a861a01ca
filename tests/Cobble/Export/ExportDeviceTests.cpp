#include "Export/ExportDevice.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <KTUtility/KTSaveFile>

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
class ExportDeviceTests : public testing::Test
{
protected:
    ExportDeviceTests() : file(tree.path(u"out"_s)) { tree.add(u"out"_s, "old"); }

    QByteArray contents() const { return testing_support::contentsOf(tree.path(u"out"_s)); }

    testing_support::FileTree tree;
    KTSaveFile file;
};
} // namespace

TEST_F(ExportDeviceTests, RunsItsExample)
{
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ExportDevice device(&file);
    EXPECT_TRUE(device.isOpen() && device.isWritable() && !device.isReadable());
    EXPECT_EQ(device.write("a,b\n"), 4);
    QTextStream(&device) << "1,2\n";
    EXPECT_EQ(contents(), "old");
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(contents(), "a,b\n1,2\n");
}

TEST_F(ExportDeviceTests, WhatAnExporterClosesIsNotTheFile)
{
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ExportDevice device(&file);
    device.write("one");
    device.close();
    EXPECT_FALSE(device.open(QIODevice::WriteOnly));
    EXPECT_EQ(device.write("two"), 3);
    device.close();
    EXPECT_TRUE(file.isOpen());
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(contents(), "onetwo");
}

TEST_F(ExportDeviceTests, CanBeSoughtIn)
{
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ExportDevice device(&file);
    EXPECT_FALSE(device.isSequential());
    device.write("size: ??, text");
    EXPECT_EQ(device.size(), 14);
    EXPECT_TRUE(device.seek(6));
    device.write("14");
    EXPECT_EQ(device.pos(), 8);
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(contents(), "size: 14, text");
}

TEST_F(ExportDeviceTests, TellsWhatTheFileCannot)
{
    QFile full(u"/dev/full"_s);
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    ExportDevice device(&full);
    EXPECT_EQ(device.write("x"), -1);
    EXPECT_EQ(device.errorString(), full.errorString());
    char byte = 0;
    EXPECT_EQ(device.read(&byte, 1), -1);
}
