#include "PlugInsCommand.h"

#include "Library/PlugIns.h"
#include "Text/AlignedTable.h"

#include <QCommandLineParser>
#include <QTextStream>

namespace {
QString stateText(KTPlugInState state)
{
    switch (state) {
    case KTPlugInState::Skipped:
        return QStringLiteral("skipped");
    case KTPlugInState::Replaced:
        return QStringLiteral("replaced");
    case KTPlugInState::Registered:
        return QStringLiteral("not loaded");
    case KTPlugInState::Failed:
        return QStringLiteral("failed");
    case KTPlugInState::Loaded:
        return QStringLiteral("loaded");
    }
    return {};
}

void addPlugIns(const QString &kind, const KTPlugInManager &manager, AlignedTable *table)
{
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    for (const KTPlugInStatus &status : all) {
        const bool isEnabled = manager.isPluginEnabled(status.identifier);
        table->addRow({status.identifier.isNull() ? QStringLiteral("-") : status.identifier, kind,
                       isEnabled ? QStringLiteral("yes") : QStringLiteral("no"),
                       stateText(status.state), status.path, status.lastError});
    }
}

ExitCode listPlugIns(PlugIns &plugIns, CommandContext &context)
{
    AlignedTable table;
    table.addRow({QStringLiteral("Identifier"), QStringLiteral("Kind"), QStringLiteral("Enabled"),
                  QStringLiteral("State"), QStringLiteral("Path"), QStringLiteral("Last error")});
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
        // One whose folder is gone may still be enabled.
        if (manager->isPluginEnabled(identifier))
            return manager;
    }
    return nullptr;
}

QString lastErrorOf(const QString &identifier, const KTPlugInManager &manager)
{
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    for (const KTPlugInStatus &status : all) {
        if (status.identifier == identifier && !status.lastError.isNull())
            return status.lastError;
    }
    return QStringLiteral("the settings cannot be written");
}

/// \return false, told, if the plug-in is not as it should be then.
bool setEnabled(const QString &identifier, bool isEnabled, PlugIns &plugIns,
                CommandContext &context)
{
    KTPlugInManager *const manager = managerOf(identifier, plugIns);
    if (!manager) {
        context.warn(identifier, QStringLiteral("there is no such plug-in"));
        return false;
    }
    if (isEnabled)
        manager->enablePluginWithIdentifier(identifier);
    else if (manager->isPluginLoaded(identifier))
        manager->disablePluginWithIdentifier(identifier);
    else
        manager->setEnabledForPlugin(false, identifier); // one that cannot be loaded
    const bool isDone = manager->isPluginEnabled(identifier) == isEnabled;
    if (!isDone)
        context.warn(identifier, lastErrorOf(identifier, *manager));
    return isDone;
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
QString mistakeInPlugIns(const QCommandLineParser &parser)
{
    const QStringList words = parser.positionalArguments();
    const QString name = words.value(0, QStringLiteral("list"));
    const bool isList = name == u"list" && words.size() <= 1;
    const bool isSetting = (name == u"enable" || name == u"disable") && words.size() > 1;
    return isList || isSetting ? QString()
                               : QStringLiteral("plugins takes list, enable ID or disable ID");
}

ExitCode runPlugIns(const QCommandLineParser &parser, CommandContext &context)
{
    const QStringList words = parser.positionalArguments();
    PlugIns plugIns;
    return words.size() <= 1
               ? listPlugIns(plugIns, context)
               : setAllEnabled(words.sliced(1), words.first() == u"enable", plugIns, context);
}
} // namespace

ExitCode runPlugInsCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    return context.run(arguments, &parser, mistakeInPlugIns, runPlugIns);
}
