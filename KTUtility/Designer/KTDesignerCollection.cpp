#include "KTDesignerCollection_p.h"

#include <KTUtility/Views/KTFocusRingScrollView.h>
#include <KTUtility/Views/KTFocusRingView.h>
#include <KTUtility/Views/KTMediaFieldSlider.h>

namespace {
template<typename View>
QWidget *create(QWidget *parent)
{
    return new View(parent);
}

KTDesignerDescription focusRingView()
{
    return {.className = QStringLiteral("KTFocusRingView"),
            .baseName = QStringLiteral("QWidget"),
            .header = QStringLiteral("KTUtility/Views/KTFocusRingView.h"),
            .explanation = QStringLiteral("Shows a ring while the focus is inside of it"),
            .isContainer = true,
            .contents = {},
            .create = create<KTFocusRingView>};
}

KTDesignerDescription focusRingScrollView()
{
    return {.className = QStringLiteral("KTFocusRingScrollView"),
            .baseName = QStringLiteral("QScrollArea"),
            .header = QStringLiteral("KTUtility/Views/KTFocusRingScrollView.h"),
            .explanation =
                QStringLiteral("Scrolls, and shows a ring while the focus is inside of it"),
            .isContainer = true,
            .contents = QStringLiteral("<property name=\"widgetResizable\"><bool>true</bool>"
                                       "</property><widget class=\"QWidget\" name=\"contents\"/>"),
            .create = create<KTFocusRingScrollView>};
}

KTDesignerDescription mediaFieldSlider()
{
    return {.className = QStringLiteral("KTMediaFieldSlider"),
            .baseName = QStringLiteral("QSlider"),
            .header = QStringLiteral("KTUtility/Views/KTMediaFieldSlider.h"),
            .explanation = QStringLiteral("A slider with a picture for its knob; set its range in "
                                          "the code"),
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
