// The plug-in that shows the framework's views in Qt Designer.

#include <KTUtility/KTFocusRingScrollView>
#include <KTUtility/KTFormatterEdit>

#include "support/TestSupport.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPluginLoader>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

using namespace Qt::StringLiterals;

namespace {
const QString PlugIn = QStringLiteral(KTUTILITY_DESIGNER_PLUGIN);

class KTDesignerCollectionTests : public testing_support::WindowedTest
{
protected:
    KTDesignerCollectionTests() : loader(PlugIn)
    {
        auto *const collection =
            qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
        if (collection)
            widgets = collection->customWidgets();
    }

    QPluginLoader loader;
    QList<QDesignerCustomWidgetInterface *> widgets;
};
} // namespace

TEST_F(KTDesignerCollectionTests, HasEveryView)
{
    ASSERT_TRUE(loader.isLoaded()) << loader.errorString().toStdString();
    QStringList names;
    for (const QDesignerCustomWidgetInterface *const widget : widgets)
        names += widget->name();
    EXPECT_EQ(names,
              QStringList({u"KTFocusRingView"_s, u"KTFocusRingScrollView"_s,
                           u"KTMediaFieldSlider"_s, u"KTFormatterEdit"_s, u"KTBoundCheckBox"_s,
                           u"KTBoundComboBox"_s, u"KTBoundDateEdit"_s, u"KTBoundTextEdit"_s}));
}

TEST_F(KTDesignerCollectionTests, MakesEachOfThem)
{
    ASSERT_EQ(widgets.size(), 8);
    QWidget parent;
    for (QDesignerCustomWidgetInterface *const widget : widgets) {
        const QWidget *const made = widget->createWidget(&parent);
        ASSERT_NE(made, nullptr);
        EXPECT_EQ(QString::fromLatin1(made->metaObject()->className()), widget->name());
        EXPECT_EQ(made->parentWidget(), &parent);
        EXPECT_EQ(widget->group(), u"KTUtility"_s);
        EXPECT_FALSE(widget->toolTip().isEmpty());
        EXPECT_FALSE(widget->whatsThis().isEmpty());
        EXPECT_TRUE(widget->icon().isNull());
    }
    EXPECT_TRUE(widgets.at(0)->isContainer() && widgets.at(1)->isContainer());
    EXPECT_FALSE(widgets.at(2)->isContainer());
}

TEST_F(KTDesignerCollectionTests, NamesHeadersThatExist)
{
    for (const QDesignerCustomWidgetInterface *const widget : widgets) {
        const QString header = QStringLiteral(KTUTILITY_HEADERS "/") + widget->includeFile();
        EXPECT_TRUE(QFileInfo::exists(header)) << header.toStdString();
    }
}

TEST_F(KTDesignerCollectionTests, FormsOfItAreRead)
{
    QUiLoader forms;
    forms.addPluginPath(QFileInfo(PlugIn).path());
    for (const QDesignerCustomWidgetInterface *const widget : widgets) {
        EXPECT_TRUE(forms.availableWidgets().contains(widget->name()));
        QByteArray xml = widget->domXml().toUtf8();
        xml.replace("<ui language=\"c++\">", "<ui version=\"4.0\">");
        QBuffer form(&xml);
        form.open(QIODevice::ReadOnly);
        const std::unique_ptr<QWidget> made(forms.load(&form));
        ASSERT_NE(made, nullptr) << forms.errorString().toStdString();
        EXPECT_EQ(QString::fromLatin1(made->metaObject()->className()), widget->name());
        EXPECT_TRUE(made->objectName().front().isLower());
        const auto *const area = qobject_cast<KTFocusRingScrollView *>(made.get());
        EXPECT_TRUE(!area || area->widget());
    }
}

TEST_F(KTDesignerCollectionTests, FormsSayTheFormatterAndItsOptions)
{
    QByteArray xml = R"(<ui version="4.0"><widget class="KTFormatterEdit" name="amount">
        <property name="formatterClass"><string>KTNumberFormatter</string></property>
        <property name="formatterOptions"><stringlist><string>decimalPlaces=2</string>
        </stringlist></property>
        <property name="placeholderText"><string>Amount</string></property>
        <property name="readOnly"><bool>true</bool></property></widget></ui>)";
    QUiLoader forms;
    forms.addPluginPath(QFileInfo(PlugIn).path());
    QBuffer form(&xml);
    form.open(QIODevice::ReadOnly);
    const std::unique_ptr<QWidget> made(forms.load(&form));
    auto *const edit = qobject_cast<KTFormatterEdit *>(made.get());
    ASSERT_NE(edit, nullptr) << forms.errorString().toStdString();
    edit->setValue(5);
    EXPECT_EQ(edit->text(), u"5.00"_s);
    EXPECT_EQ(edit->placeholderText(), u"Amount"_s);
    EXPECT_TRUE(edit->isReadOnly());
}
