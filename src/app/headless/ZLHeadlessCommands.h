#pragma once

#include "document/ZLChapterDocument.h"

#include <QObject>

#include <span>

class ZLHeadlessConcerns;
class ZLHeadlessReport;
struct ZLConcernChoice;
enum class ZLConcernAction;
struct ZLRemoteAction;

/// The commands of a recorder without a window: the actions of a remote control, the choices where something is to be
/// decided, and a few of its own. Each says in a line what became of it.
class ZLHeadlessCommands : public QObject {
    Q_OBJECT

public:
    /// All have to outlive the object.
    ZLHeadlessCommands(
        ZLChapterDocument& document, ZLHeadlessReport& report, ZLHeadlessConcerns& concerns, QObject* parent = nullptr);

    /// One command, as it comes from the input. Returns false for one that is none.
    [[nodiscard]] bool perform(const QString& line);
    void performAction(const ZLRemoteAction& action);
    void performChoice(const ZLConcernChoice& choice);
    void printOutcome(ZLConcernAction action);

Q_SIGNALS:
    void quitRequested();

private:
    /// A command beside the actions and the choices. Its texts are untranslated.
    struct Own {
        const char* name;
        const char* description;
        void (ZLHeadlessCommands::*perform)(const QString& argument);
    };

    [[nodiscard]] static std::span<const Own> ownCommands();

    void setTitle(const QString& title);
    void printStatus(const QString& argument);
    void printHelp(const QString& argument);
    void quit(const QString& argument);

    ZLChapterDocument& m_document;
    ZLHeadlessReport& m_report;
    ZLHeadlessConcerns& m_concerns;
};
