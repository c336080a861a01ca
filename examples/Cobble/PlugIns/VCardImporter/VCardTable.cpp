#include "VCardTable.h"

#include <QFile>
#include <QRegularExpression>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// So many columns of a title there are at most.
constexpr int MostOfAKind = 20;

/// Properties whose whole value is one field.
constexpr std::array<std::pair<QStringView, QStringView>, 8> Titles{{
    {u"FN", u"Name"},
    {u"NICKNAME", u"Nickname"},
    {u"TITLE", u"Job title"},
    {u"ROLE", u"Role"},
    {u"NOTE", u"Notes"},
    {u"URL", u"URL"},
    {u"CATEGORIES", u"Categories"},
    {u"ANNIVERSARY", u"Anniversary"},
}};

QString titleOf(const QString &name)
{
    for (const auto &[property, title] : Titles) {
        if (property == name)
            return title.toString();
    }
    return {};
}

/// " (home)", " (work)", or nothing.
QString placeOf(const VCardLine &line)
{
    if (line.hasType(u"HOME"))
        return u" (home)"_s;
    return line.hasType(u"WORK") ? u" (work)"_s : QString();
}

QString phoneTitle(const VCardLine &line)
{
    if (line.hasType(u"CELL"))
        return u"Mobile"_s;
    const QString title = line.hasType(u"FAX") ? u"Fax"_s : u"Phone"_s;
    return title + placeOf(line);
}

/// "tel:+49-30-1234" is the number; everything else stays.
QString phoneNumber(const VCardLine &line)
{
    const QString text = line.text();
    return text.startsWith(u"tel:", Qt::CaseInsensitive) ? text.mid(4) : text;
}

/// "19850412" and "1985-04-12T00:00:00Z" are 1985-04-12; "--0412", a day of every year, which looks
/// like a number, is --04-12.
QString dateText(const QString &text)
{
    static const QRegularExpression form(uR"(\A(\d{4}|-(?=-))-?(\d\d)-?(\d\d)(T.*)?\z)"_s);
    const QRegularExpressionMatch match = form.match(text);
    return match.hasMatch()
               ? QStringList{match.captured(1), match.captured(2), match.captured(3)}.join(u'-')
               : text;
}

/// The kind of a picture as the extension of its file.
QString pictureExtension(const VCardLine &line)
{
    for (const char16_t *type : {u"PNG", u"GIF", u"TIFF", u"BMP", u"WEBP"}) {
        const QString kind = QString::fromUtf16(type);
        if (line.hasType(kind) ||
            line.value.startsWith(u"data:image/" + kind, Qt::CaseInsensitive) ||
            line.parameter(u"MEDIATYPE").endsWith(kind, Qt::CaseInsensitive))
            return kind.toLower();
    }
    return u"jpg"_s;
}
} // namespace

void VCardTable::add(const VCardLine &line)
{
    const bool isCard = line.value.trimmed().compare(u"VCARD", Qt::CaseInsensitive) == 0;
    if (line.name == u"BEGIN" && isCard) {
        _isInCard = true;
        _table.rows += QStringList();
    } else if (line.name == u"END" && isCard) {
        _isInCard = false;
    } else if (_isInCard) {
        addProperty(line);
    }
}

void VCardTable::addProperty(const VCardLine &line)
{
    if (line.name == u"N")
        addName(line);
    else if (line.name == u"ADR")
        addAddress(line);
    else if (line.name == u"ORG")
        addOrganization(line);
    else if (line.name == u"PHOTO")
        addPicture(line);
    else if (line.name == u"TEL")
        addValue(phoneTitle(line), phoneNumber(line), u"phone"_s);
    else if (line.name == u"EMAIL")
        addValue(u"E-mail" + placeOf(line), line.text());
    else if (line.name == u"BDAY")
        addValue(u"Birthday"_s, dateText(line.text()), u""_s);
    else if (const QString title = titleOf(line.name); !title.isNull())
        addValue(title, line.text());
}

void VCardTable::addName(const VCardLine &line)
{
    const QStringList parts = line.parts();
    addValue(u"Last name"_s, parts.value(0));
    addValue(u"First name"_s, parts.value(1));
    addValue(u"Middle name"_s, parts.value(2));
    addValue(u"Prefix"_s, parts.value(3));
    addValue(u"Suffix"_s, parts.value(4));
}

void VCardTable::addAddress(const VCardLine &line)
{
    const QStringList parts = line.parts();
    const QString place = placeOf(line);
    addValue(u"Post office box" + place, parts.value(0));
    addValue(u"Address extension" + place, parts.value(1));
    addValue(u"Street" + place, parts.value(2));
    addValue(u"City" + place, parts.value(3));
    addValue(u"Region" + place, parts.value(4));
    addValue(u"Postal code" + place, parts.value(5));
    addValue(u"Country" + place, parts.value(6));
}

void VCardTable::addOrganization(const VCardLine &line)
{
    const QStringList parts = line.parts();
    addValue(u"Organization"_s, parts.value(0));
    addValue(u"Department"_s, parts.value(1));
}

void VCardTable::addPicture(const VCardLine &line)
{
    const QByteArray data = line.data();
    addValue(u"Photo"_s,
             data.isEmpty() ? line.value.trimmed() : pathOfPicture(data, pictureExtension(line)),
             u"media"_s);
}

/// A file for a picture that stands in the card itself; nil if it cannot be written.
QString VCardTable::pathOfPicture(const QByteArray &data, const QString &extension)
{
    if (!_table.files)
        _table.files = std::make_shared<QTemporaryDir>();
    if (!_table.files->isValid()) {
        _errorText = u"a picture cannot be unpacked: " + _table.files->errorString();
        return {};
    }
    const QString name = u"Photo %1."_s.arg(++_pictures) + extension;
    QFile file(_table.files->filePath(name));
    if (file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.flush())
        return file.fileName();
    _errorText = u"a picture cannot be unpacked: " + file.errorString();
    return {};
}

/// Puts a value into the row of the current card: into the column of the title, or if that has one
/// already, into "title 2", "title 3" and so on; the last of these takes all that come later.
void VCardTable::addValue(const QString &title, const QString &value, const QString &typeName)
{
    if (value.trimmed().isEmpty())
        return;
    QStringList &row = _table.rows.last();
    QString numbered = title;
    for (int number = 2;; ++number) {
        qsizetype column = _table.titles.indexOf(numbered);
        if (column < 0) {
            column = _table.titles.size();
            _table.titles += numbered;
            _table.typeNames += typeName;
        }
        if (row.size() <= column)
            row.resize(column + 1);
        if (row.at(column).isEmpty() || number > MostOfAKind) {
            row[column] += row.at(column).isEmpty() ? value : QString(u'\n' + value);
            return;
        }
        numbered = u"%1 %2"_s.arg(title).arg(number);
    }
}
