#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

/// What somebody has typed and a field has rejected.
struct RejectedInput
{
    /// The title of the field.
    QString field;
    QString text;
    QString reason;
    /// Where it still stands.
    QPointer<QWidget> input;
    /// Puts the value in its place that the field has.
    std::function<void()> discard;
};

/// Where people type values.
class InputSource
{
public:
    virtual ~InputSource() = default;

    /// Stores what was typed and is not stored yet.
    /// \return what was rejected; nothing if all is stored.
    virtual std::optional<RejectedInput> settle() = 0;
    /// Whether the user is being asked about something typed, which is not stored until then.
    /// \param then is called after the answer, unless what was typed cannot be stored.
    virtual bool isAsking(const std::function<void()> & /*then*/) { return false; }
};
