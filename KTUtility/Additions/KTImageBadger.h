#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QImage>
#include <QString>

/// Makes the badges that say how many things are dragged: a pill of the right width with a few
/// characters on it. Put one on a picture with KTAdditions::applyBadge().
///
/// The pills are pictures among the resources, "dragBadge1-2.tif" to "dragBadge5.tif", in two
/// resolutions; a program replaces them by resources of the same names.
///
/// \code
/// QImage icon = KTAdditions::applyBadge(rowPicture, KTImageBadger::badgeWithString(u"12"_s),
///                                       1, 0, false);
/// drag->setPixmap(QPixmap::fromImage(icon));
/// \endcode
class KTUTILITY_EXPORT KTImageBadger
{
public:
    /// The most characters that a badge shows.
    static constexpr int MaximumLength = 5;

    KTImageBadger() = delete;

    /// The pill for a number of characters: 3, 4 and 5 have one each, every other number that of 1
    /// and 2. Null if the picture is missing.
    static QImage badgeOfSize(unsigned countOfCharacters);

    /// A pill with a text in white, in the user's font of 11 pixels; longer texts than of
    /// MaximumLength UTF-16 units are "?!". Without a QGuiApplication there are no fonts, and the
    /// pill stays empty. Null if the picture is missing.
    static QImage badgeWithString(const QString &string);
};
