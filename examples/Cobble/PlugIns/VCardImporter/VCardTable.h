#pragma once

#include "Interfaces/CobbleImporter.h"
#include "VCardLine.h"

/// Collects the lines of vCards into a table.
///
/// \code
/// VCardTable cards;
/// for (const VCardLine &line : VCardLine::linesOf(text))
///     cards.add(line);
/// cards.table().titles;    // {"Name", "Phone (home)"}
/// \endcode
class VCardTable
{
public:
    /// Takes a line into account; what stands outside of cards says nothing.
    void add(const VCardLine &line);
    /// Whether there was no card.
    bool isEmpty() const { return _table.rows.isEmpty(); }
    const CobbleTable &table() const { return _table; }
    /// Why a picture that a card holds is not in the table; nil if all are.
    const QString &errorText() const { return _errorText; }

private:
    void addProperty(const VCardLine &line);
    void addName(const VCardLine &line);
    void addAddress(const VCardLine &line);
    void addOrganization(const VCardLine &line);
    void addPicture(const VCardLine &line);
    void addValue(const QString &title, const QString &value,
                  const QString &typeName = QStringLiteral("text"));
    QString pathOfPicture(const QByteArray &data, const QString &extension);

    CobbleTable _table;
    bool _isInCard = false;
    int _pictures = 0;
    QString _errorText;
};
