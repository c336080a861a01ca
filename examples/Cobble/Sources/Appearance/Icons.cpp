#include "Icons.h"

#include "LineIcon.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {
/// What is drawn where the theme lacks it, on a square of 16 units.
QString drawingOf(const QString &name)
{
    static const QHash<QString, QString> drawings{
        {u"window-new"_s, u"M 2 3 L 14 3 L 14 13 L 2 13 L 2 3 M 2 6 L 14 6"_s},
        {u"window-close"_s, u"M 4 4 L 12 12 M 12 4 L 4 12"_s},
        {u"document-import"_s, u"M 8 2 L 8 10 M 5 7 L 8 10 L 11 7 M 2 10 L 2 14 L 14 14 L 14 10"_s},
        {u"document-export"_s, u"M 8 10 L 8 2 M 5 5 L 8 2 L 11 5 M 2 10 L 2 14 L 14 14 L 14 10"_s},
        {u"application-exit"_s,
         u"M 8 2 L 8 8 M 5 3 L 2 6 L 2 10 L 5 14 L 11 14 L 14 10 L 14 6 L 11 3"_s},
        {u"edit-find"_s,
         u"M 3 7 L 4 4 L 7 3 L 10 4 L 11 7 L 10 10 L 7 11 L 4 10 L 3 7 M 10 10 L 14 14"_s},
        {u"edit-delete"_s,
         u"M 3 4 L 13 4 M 6 4 L 6 2 L 10 2 L 10 4 M 4 4 L 5 14 L 11 14 L 12 4 M 7 7 L 7 11 "
         "M 9 7 L 9 11"_s},
        {u"help-contents"_s, u"M 5 5 L 6 3 L 10 3 L 11 5 L 8 8 L 8 10 M 8 12 L 8 13"_s},
        {u"help-about"_s, u"M 8 3 L 8 4 M 6 6 L 8 6 L 8 13 M 6 13 L 10 13"_s},
        {u"input-keyboard"_s,
         u"M 1 4 L 15 4 L 15 12 L 1 12 L 1 4 M 4 7 L 5 7 M 7 7 L 8 7 M 10 7 L 11 7 "
         "M 5 10 L 11 10"_s},
        {u"x-office-spreadsheet"_s,
         u"M 2 3 L 14 3 L 14 13 L 2 13 L 2 3 M 2 6 L 14 6 M 6 3 L 6 13 M 2 10 L 14 10"_s},
        {u"notification-disabled"_s,
         u"M 4 11 L 4 7 L 6 4 L 10 4 L 12 7 L 12 11 M 2 11 L 14 11 M 7 13 L 9 13 "
         "M 2 2 L 14 14"_s},
        {u"accessories-calculator"_s,
         u"M 3 14 L 3 8 L 5 8 L 5 14 M 7 14 L 7 3 L 9 3 L 9 14 M 11 14 L 11 6 L 13 6 L 13 14"_s},
    };
    return drawings.value(name);
}
} // namespace

QIcon Icons::named(const QString &name)
{
    const QString drawing = drawingOf(name);
    return QIcon::fromTheme(name, drawing.isNull() ? QIcon() : QIcon(new LineIcon(drawing)));
}

QIcon Icons::ofAction(const QString &action)
{
    static const QHash<QString, QString> names{
        {u"newWindow:"_s, u"window-new"_s},
        {u"closeWindow:"_s, u"window-close"_s},
        {u"importFile:"_s, u"document-import"_s},
        {u"exportFile:"_s, u"document-export"_s},
        {u"terminate:"_s, u"application-exit"_s},
        {u"findRecords:"_s, u"edit-find"_s},
        {u"deleteRecords:"_s, u"edit-delete"_s},
        {u"showSilencedAlerts:"_s, u"notification-disabled"_s},
        {u"showRecordCount:"_s, u"accessories-calculator"_s},
        {u"showHelp:"_s, u"help-contents"_s},
        {u"showShortcuts:"_s, u"input-keyboard"_s},
        {u"showAbout:"_s, u"help-about"_s},
    };
    return names.contains(action) ? named(names.value(action)) : QIcon();
}

QIcon Icons::application()
{
    QIcon drawn;
    for (const int size : {16, 32, 48, 128, 256})
        drawn.addFile(u":/Cobble/Icons/%1.png"_s.arg(size), QSize(size, size));
    return QIcon::fromTheme(u"org.cobble.Cobble"_s, drawn);
}
