#include "Making/FieldOptionsEditor.h"

#include "support/TestSupport.h"

#include <KTUtility/NSLocale>

#include <QCheckBox>
#include <QComboBox>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
class FieldOptionsEditorTests : public testing_support::WindowedTest
{
protected:
    FieldOptionsEditorTests()
        : editor(new FieldOptionsEditor(u"Type:"_s, new QComboBox))
        , changes(editor, &FieldOptionsEditor::changed)
    {
        editor->setParent(&window);
        NSLocale::setCurrentLocale(NSLocale(u"en_US"_s));
    }
    ~FieldOptionsEditorTests() override { NSLocale::resetCurrentLocale(); }

    static LibraryField fieldOf(FieldType type, const QVariantMap &options = {})
    {
        LibraryField field;
        field.type = type;
        field.options = options;
        return field;
    }
    QStringList names() const
    {
        QStringList names;
        for (QWidget *const each :
             editor->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!each->objectName().isEmpty())
                names += each->objectName();
        }
        return names;
    }
    template<typename Input>
    Input *input(const QString &name)
    {
        return editor->findChild<Input *>(name);
    }
    QVariantMap last() const { return changes.last().first().toMap(); }

    QWidget window;
    FieldOptionsEditor *editor;
    QSignalSpy changes;
};
} // namespace

TEST_F(FieldOptionsEditorTests, ShowsWhatTheTypeHas)
{
    const struct
    {
        FieldType type;
        QStringList names;
    } rows[] = {
        {FieldType::Number,
         {u"decimalPlaces"_s, u"displayThousandsSeparator"_s, u"highlightNegative"_s,
          u"formatNegativeUsingParens"_s}},
        {FieldType::Currency,
         {u"currencyType"_s, u"displayThousandsSeparator"_s, u"highlightNegative"_s,
          u"formatNegativeUsingParens"_s}},
        {FieldType::Date, {u"dateStyle"_s, u"displayYear"_s}},
        {FieldType::Time, {u"timeStyle"_s}},
        {FieldType::DateTime, {u"dateStyle"_s, u"timeStyle"_s, u"displayYear"_s}},
        {FieldType::Duration, {u"useAbbreviations"_s}},
        {FieldType::Text, {}},
        {FieldType::Media, {}},
    };
    for (const auto &row : rows) {
        editor->setField(fieldOf(row.type));
        EXPECT_EQ(names(), row.names);
    }
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(FieldOptionsEditorTests, GivesAllSettingsWithTheOneThatIsChanged)
{
    editor->setField(fieldOf(FieldType::Currency, {{u"currencyType"_s, u"XTS"_s}}));
    EXPECT_EQ(input<QComboBox>(u"currencyType"_s)->currentText(), u"XTS"_s);
    QTest::keyClick(input<QCheckBox>(u"highlightNegative"_s), Qt::Key_Space);
    const bool isHighlighted = input<QCheckBox>(u"highlightNegative"_s)->isChecked();
    EXPECT_EQ(last(), QVariantMap({{u"currencyType"_s, u"XTS"_s},
                                   {u"highlightNegative"_s, isHighlighted}}));
    QTest::keyClicks(input<QComboBox>(u"currencyType"_s), u"JPY"_s);
    Q_EMIT input<QComboBox>(u"currencyType"_s)->textActivated(u"JPY"_s);
    EXPECT_EQ(last().value(u"currencyType"_s).toString(), u"JPY"_s);
}

TEST_F(FieldOptionsEditorTests, CountsAndStylesAreTakenAsTheyAre)
{
    editor->setField(fieldOf(FieldType::Number, {{u"decimalPlaces"_s, 2u}}));
    auto *const places = input<QSpinBox>(u"decimalPlaces"_s);
    EXPECT_EQ(places->value(), 2);
    EXPECT_EQ(places->accessibleName(), u"Decimal places"_s);
    QTest::keyClick(places, Qt::Key_Up);
    EXPECT_EQ(last(), QVariantMap({{u"decimalPlaces"_s, 3u}}));
    editor->setField(fieldOf(FieldType::Date, {{u"dateStyle"_s, 3u}}));
    EXPECT_EQ(input<QComboBox>(u"dateStyle"_s)->currentText(), u"Long"_s);
}

TEST_F(FieldOptionsEditorTests, ASettingThatIsBeingChangedStaysThere)
{
    editor->setField(fieldOf(FieldType::Number));
    auto *const places = input<QSpinBox>(u"decimalPlaces"_s);
    QTest::keyClick(places, Qt::Key_Up);
    editor->setField(fieldOf(FieldType::Number, last()));
    EXPECT_EQ(input<QSpinBox>(u"decimalPlaces"_s), places);
    editor->setField(fieldOf(FieldType::Text));
    EXPECT_EQ(names(), QStringList());
}
