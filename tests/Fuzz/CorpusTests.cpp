// Every input that a fuzzer has found worth keeping, once more.

#include "FuzzTarget.h"

#include "support/TestSupport.h"

#include <QDir>

namespace {
class Corpus : public testing::TestWithParam<const char *>
{
};

std::vector<const char *> targetNames()
{
    std::vector<const char *> names;
    for (const FuzzTarget &target : fuzzTargets())
        names.push_back(target.name);
    return names;
}
} // namespace

TEST_P(Corpus, IsReadWithoutHarm)
{
    const FuzzTarget *const target = fuzzTargetNamed(GetParam());
    ASSERT_NE(target, nullptr);
    const QDir folder(QStringLiteral(FUZZ_CORPORA) + u'/' + QString::fromLatin1(GetParam()));
    const QStringList names = folder.entryList(QDir::Files);
    EXPECT_GE(names.size(), 20);
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        const QByteArray bytes = testing_support::contentsOf(folder.filePath(name));
        FuzzInput input(
            std::span(reinterpret_cast<const uint8_t *>(bytes.constData()), size_t(bytes.size())));
        EXPECT_NO_THROW(target->run(input));
    }
}

INSTANTIATE_TEST_SUITE_P(All, Corpus, testing::ValuesIn(targetNames()),
                         [](const auto &target) { return std::string(target.param); });
