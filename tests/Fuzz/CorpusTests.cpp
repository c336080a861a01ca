// Every input that a fuzzer has found worth keeping, once more.

#include "FuzzTarget.h"
#include "InputPack.h"

#include "InputNote.h"

#include "support/TestSupport.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {
class CorpusTests : public testing::TestWithParam<const char *>
{
protected:
    static QString path()
    {
        return QStringLiteral(FUZZ_CORPORA) + u"/%1.pack"_s.arg(QLatin1String(GetParam()));
    }
};

std::vector<const char *> targetNames()
{
    std::vector<const char *> names;
    for (const FuzzTarget &target : fuzzTargets())
        names.push_back(target.name);
    return names;
}

void run(const FuzzTarget &target, const QByteArray &bytes)
{
    FuzzInput input(
        std::span(reinterpret_cast<const uint8_t *>(bytes.constData()), size_t(bytes.size())));
    target.run(input);
}
} // namespace

TEST_P(CorpusTests, IsReadWithoutHarm)
{
    const FuzzTarget *const target = fuzzTargetNamed(GetParam());
    ASSERT_NE(target, nullptr);
    QString reason;
    const std::optional<InputPack> pack = InputPack::fromFile(path(), &reason);
    ASSERT_TRUE(pack) << reason.toStdString();
    EXPECT_GE(pack->inputs().size(), 20);
    for (qsizetype index = 0; index < pack->inputs().size(); ++index) {
        const QByteArray &bytes = pack->inputs().at(index);
        SCOPED_TRACE(testing::Message() << "input " << index << " of " << bytes.size() << " bytes");
        const InputNote note(index, bytes.size());
        EXPECT_NO_THROW(run(*target, bytes));
    }
}

TEST_P(CorpusTests, IsPackedAsItWouldBeAgain)
{
    const std::optional<InputPack> pack = InputPack::fromFile(path());
    ASSERT_TRUE(pack);
    EXPECT_EQ(pack->bytes(), testing_support::contentsOf(path()));
}

INSTANTIATE_TEST_SUITE_P(All, CorpusTests, testing::ValuesIn(targetNames()),
                         [](const auto &target) { return std::string(target.param); });

TEST(Corpus, IsOfATarget)
{
    QStringList expected;
    for (const char *name : targetNames())
        expected.append(QLatin1String(name) + u".pack"_s);
    EXPECT_EQ(QDir(QStringLiteral(FUZZ_CORPORA)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              expected);
}
