#include "KTDesignerCollection_p.h"

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
} // namespace

KTDesignerCollection::KTDesignerCollection()
    : _widgets{std::make_unique<KTDesignerWidget>(focusRingView()),
               std::make_unique<KTDesignerWidget>(focusRingScrollView()),
               std::make_unique<KTDesignerWidget>(mediaFieldSlider())}
{
}

QList<QDesignerCustomWidgetInterface *> KTDesignerCollection::customWidgets() const
{
    QList<QDesignerCustomWidgetInterface *> widgets;
    for (const auto &widget : _widgets)
        widgets += widget.get();
    return widgets;
}
