#pragma once

#include <QStringList>

/// The one of \a components that \a text names: the same text, else the same but for capitals; nil
/// if there is none.
///
/// \code
/// componentNamed(u"import dialog"_s, components);    // "Import Dialog"
/// \endcode
QString componentNamed(const QString &text, const QStringList &components);

/// Those of \a components that \a text may have been meant for: they contain it, are contained in
/// it, or they or one of their words differ from it by a few letters; in order.
QStringList componentsNear(const QString &text, const QStringList &components);

/// The message about a component that does not exist, with the near ones.
QString unknownComponentText(const QString &text, const QStringList &components);
