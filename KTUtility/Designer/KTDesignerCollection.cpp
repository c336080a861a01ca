#include "KTDesignerCollection_p.h"

#include <KTUtility/Qt/KTBoundCheckBox.h>
#include <KTUtility/Qt/KTBoundComboBox.h>
#include <KTUtility/Qt/KTBoundDateEdit.h>
#include <KTUtility/Qt/KTBoundTextEdit.h>
#include <KTUtility/Qt/KTFormatterEdit.h>
#include <KTUtility/Views/KTFocusRingScrollView.h>
#include <KTUtility/Views/KTFocusRingView.h>
#include <KTUtility/Views/KTMediaFieldSlider.h>

using namespace Qt::StringLiterals;

namespace {
template<typename View>
QWidget *create(QWidget *parent)
{
    return new View(parent);
}

KTDesignerDescription focusRingView()
{
    return {.className = u"KTFocusRingView"_s,
            .baseName = u"QWidget"_s,
            .header = u"KTUtility/Views/KTFocusRingView.h"_s,
            .explanation = u"Shows a ring while the focus is inside of it"_s,
            .isContainer = true,
            .contents = {},
            .create = create<KTFocusRingView>};
}

KTDesignerDescription focusRingScrollView()
{
    return {.className = u"KTFocusRingScrollView"_s,
            .baseName = u"QScrollArea"_s,
            .header = u"KTUtility/Views/KTFocusRingScrollView.h"_s,
            .explanation = u"Scrolls, and shows a ring while the focus is inside of it"_s,
            .isContainer = true,
            .contents = u"<property name=\"widgetResizable\"><bool>true</bool>"
                        "</property><widget class=\"QWidget\" name=\"contents\"/>"_s,
            .create = create<KTFocusRingScrollView>};
}

KTDesignerDescription mediaFieldSlider()
{
    return {.className = u"KTMediaFieldSlider"_s,
            .baseName = u"QSlider"_s,
            .header = u"KTUtility/Views/KTMediaFieldSlider.h"_s,
            .explanation = u"A slider with a picture for its knob; set its range in "
                           "the code"_s,
            .isContainer = false,
            .contents = {},
            .create = create<KTMediaFieldSlider>};
}

/// An editor that is bound to a value in the code.
template<typename Editor>
KTDesignerDescription boundEditor(const QString &className, const QString &baseName,
                                  const QString &explanation)
{
    return {.className = className,
            .baseName = baseName,
            .header = u"KTUtility/Qt/%1.h"_s.arg(className),
            .explanation = explanation,
            .isContainer = false,
            .contents = {},
            .create = create<Editor>};
}

KTDesignerDescription formatterEdit()
{
    return boundEditor<KTFormatterEdit>(
        u"KTFormatterEdit"_s, u"QWidget"_s,
        u"A line that a formatter shows and reads: set its class (KTCurrencyFormatter) and its "
        "options (decimalPlaces=2)"_s);
}

KTDesignerDescription checkBox()
{
    return boundEditor<KTBoundCheckBox>(u"KTBoundCheckBox"_s, u"QCheckBox"_s,
                                        u"A check box that can be bound to a value"_s);
}

KTDesignerDescription comboBox()
{
    return boundEditor<KTBoundComboBox>(u"KTBoundComboBox"_s, u"QComboBox"_s,
                                        u"A combo box that can be bound to a value"_s);
}

KTDesignerDescription dateEdit()
{
    return boundEditor<KTBoundDateEdit>(u"KTBoundDateEdit"_s, u"QDateEdit"_s,
                                        u"A date edit that can be bound to a value"_s);
}

KTDesignerDescription textEdit()
{
    return boundEditor<KTBoundTextEdit>(u"KTBoundTextEdit"_s, u"QPlainTextEdit"_s,
                                        u"A text edit that can be bound to a value"_s);
}
} // namespace

KTDesignerCollection::KTDesignerCollection()
{
    using Description = KTDesignerDescription (*)();
    for (const Description each : {focusRingView, focusRingScrollView, mediaFieldSlider,
                                   formatterEdit, checkBox, comboBox, dateEdit, textEdit})
        _widgets.push_back(std::make_unique<KTDesignerWidget>(each()));
}

QList<QDesignerCustomWidgetInterface *> KTDesignerCollection::customWidgets() const
{
    QList<QDesignerCustomWidgetInterface *> widgets;
    for (const auto &widget : _widgets)
        widgets += widget.get();
    return widgets;
}
