#include "PlugInsCommand.h"

#include "PlugIns/PlugIns.h"
#include "Text/AlignedTable.h"

#include <KTUtility/NSUserDefaults>

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString NoPlugIn = u"there is no such plug-in"_s;
const QString NotWritten = u"the settings cannot be written"_s;

QString stateText(KTPlugInState state)
{
    switch (state) {
    case KTPlugInState::Skipped:
        return u"skipped"_s;
    case KTPlugInState::Replaced:
        return u"replaced"_s;
    case KTPlugInState::Registered:
    case KTPlugInState::Loaded:
        return u"ready"_s;
    case KTPlugInState::Failed:
        return u"failed"_s;
    case KTPlugInState::PassedOver:
        return u"passed over"_s;
    }
    return {};
}

/// A status with what keeps the plug-in from being loaded, as far as its files show it.
KTPlugInStatus checked(KTPlugInStatus status, const KTPlugInManager &manager)
{
    if (status.state != KTPlugInState::Registered)
        return status;
    const QString reason = manager.reasonNotToLoadPlugin(status.identifier);
    if (!reason.isNull())
        status = {status.path, status.identifier, KTPlugInState::Failed, reason};
    return status;
}

void addPlugIns(const QString &kind, const KTPlugInManager &manager, AlignedTable *table)
{
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    for (const KTPlugInStatus &each : all) {
        const KTPlugInStatus status = checked(each, manager);
        const bool isEnabled = manager.isPluginEnabled(status.identifier);
        table->addRow({status.identifier.isNull() ? u"-"_s : status.identifier, kind,
                       isEnabled ? u"yes"_s : u"no"_s, stateText(status.state), status.path,
                       status.lastError});
    }
}

ExitCode listPlugIns(PlugIns &plugIns, CommandContext &context)
{
    AlignedTable table;
    table.addRow(
        {u"Identifier"_s, u"Kind"_s, u"Enabled"_s, u"State"_s, u"Path"_s, u"Last error"_s});
    for (const auto &[kind, manager] : plugIns.managers())
        addPlugIns(kind, *manager, &table);
    table.print(context.out());
    return ExitCode::Success;
}

/// The manager that knows a plug-in; null if none does.
KTPlugInManager *managerOf(const QString &identifier, PlugIns &plugIns)
{
    if (identifier.isEmpty())
        return nullptr;
    for (const auto &[kind, manager] : plugIns.managers()) {
        const QList<KTPlugInStatus> all = manager->pluginStatus();
        for (const KTPlugInStatus &status : all) {
            if (status.identifier == identifier)
                return manager;
        }
        // One whose folder was removed may still be enabled.
        if (manager->isPluginEnabled(identifier))
            return manager;
    }
    return nullptr;
}

/// Why a plug-in is not loaded. One that it took the place of has an error of its own.
QString lastErrorOf(const QString &identifier, const KTPlugInManager &manager)
{
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    for (const KTPlugInStatus &status : all) {
        if (status.identifier == identifier && status.state == KTPlugInState::Failed)
            return status.lastError;
    }
    return NoPlugIn;
}

/// Loads a plug-in, also one that is enabled already, since that says nothing about its code.
Outcome<> enable(const QString &identifier, KTPlugInManager &manager)
{
    if (manager.isPluginEnabled(identifier))
        manager.loadPluginWithIdentifier(identifier);
    else
        manager.enablePluginWithIdentifier(identifier);
    if (!manager.isPluginLoaded(identifier))
        return Failure{lastErrorOf(identifier, manager)};
    // What cannot be written counts as enabled until the program ends.
    const bool isStored = manager.isPluginEnabled(identifier) &&
                          NSUserDefaults::standardUserDefaults()->synchronize();
    return isStored ? Outcome<>() : Failure{NotWritten};
}

/// To disable one, its code is not needed; it may be why.
Outcome<> disable(const QString &identifier, KTPlugInManager &manager)
{
    const bool isStored = manager.setEnabledForPlugin(false, identifier);
    return isStored ? Outcome<>() : Failure{NotWritten};
}

/// \return false, reported, if the plug-in is not as it should be then.
bool setEnabled(const QString &identifier, bool isEnabled, PlugIns &plugIns,
                CommandContext &context)
{
    KTPlugInManager *const manager = managerOf(identifier, plugIns);
    const Outcome<> outcome = !manager    ? Failure{NoPlugIn}
                              : isEnabled ? enable(identifier, *manager)
                                          : disable(identifier, *manager);
    if (!outcome)
        context.warn(identifier, outcome.reason());
    return bool(outcome);
}

ExitCode setAllEnabled(const QStringList &identifiers, bool isEnabled, PlugIns &plugIns,
                       CommandContext &context)
{
    bool isDone = true;
    for (const QString &identifier : identifiers)
        isDone = setEnabled(identifier, isEnabled, plugIns, context) && isDone;
    return isDone ? ExitCode::Success : ExitCode::Failure;
}

/// "list", also without a word, or "enable" and "disable" with identifiers.
Outcome<> checkPlugIns(const QCommandLineParser &parser)
{
    const QStringList words = parser.positionalArguments();
    const QString name = words.value(0, u"list"_s);
    const bool isList = name == u"list" && words.size() <= 1;
    const bool isSetting = (name == u"enable" || name == u"disable") && words.size() > 1;
    if (isList || isSetting)
        return {};
    return Failure{u"plugins takes list, enable ID or disable ID"_s};
}

ExitCode runPlugIns(const QCommandLineParser &parser, CommandContext &context)
{
    const QStringList words = parser.positionalArguments();
    PlugIns plugIns(PlugIns::Loading::None);
    return words.size() <= 1
               ? listPlugIns(plugIns, context)
               : setAllEnabled(words.sliced(1), words.first() == u"enable", plugIns, context);
}
} // namespace

ExitCode runPlugInsCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    return context.run(arguments, &parser, checkPlugIns, runPlugIns);
}
