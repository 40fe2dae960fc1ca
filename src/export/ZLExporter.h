#pragma once

#include "model/ZLChapter.h"
#include "platform/ZLResult.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <typeindex>

/// How a format gets at the file that it writes.
enum class ZLExportDialogKind {
    None, ///< It writes no file at all.
    Save, ///< A new file, or one that is replaced.
    Open, ///< An existing file that is rewritten in place.
};

/// The checkbox of a format that has one.
enum class ZLExportOption { Off, On };

/// What happens with the file of a menu's export once it is written.
enum class ZLExportAfterwards { Nothing, OpenInTextEditor };

/// What a format says about itself.
struct ZLExportFormat {
    /// The name by which the command line knows it, "Podlove Simple Chapters".
    QString name {};
    ZLExportDialogKind dialogKind = ZLExportDialogKind::None;
    /// Extension of its files without the dot, "psc".
    QString fileType {};
    /// Title of its checkbox, untranslated; empty when it has none.
    QString optionTitle {};
    ZLExportAfterwards afterwards = ZLExportAfterwards::Nothing;
    /// Of a format whose lines follow a pattern: the one that is taken where none is given. Empty for all others.
    QString usualLinePattern {};

    [[nodiscard]] bool hasOption() const { return !optionTitle.isEmpty(); }
    [[nodiscard]] bool hasLinePattern() const { return !usualLinePattern.isEmpty(); }
    /// The name and the checkbox's title in the user's language.
    /// @{
    [[nodiscard]] QString shownName() const;
    [[nodiscard]] QString shownOptionTitle() const;
    /// @}
};

/// All that a format may make its bytes from. It is a value, so that an export needs neither a document nor a window.
struct ZLExportInput {
    /// All chapters in list order, the disabled ones too.
    ZLChapterSequence chapters {};
    /// Seconds of all finished recording spans.
    double duration = 0.0;
    /// Whether a further span still runs, whose end is not known. No byte depends on it, only what the user is told.
    bool isRecording = false;
    ZLExportOption option = ZLExportOption::Off;
    /// For a format with a line pattern; empty for its usual one.
    QString linePattern {};
    /// Name of the chosen file without its folder and its last extension.
    QString fileBaseName {};
    /// What the chosen file holds before the export; only for ZLExportDialogKind::Open.
    QByteArray existingBytes {};
};

/// Why a chosen file cannot be used at all, in a form that deserves an alert.
struct ZLExportAlert {
    QString message;
    QString informativeText;
};

class ZLExporterClass;

/// One export format. A derived class has a static `format()` and turns chapters into the bytes of a file; asking for
/// the file and writing it is the same for all and lies outside. The base class writes nothing.
///
/// The class side lists all formats of the process. It is used from the main thread only.
class ZLExporter {
public:
    virtual ~ZLExporter() = default;

    /// A format without a name and without a file.
    [[nodiscard]] static ZLExportFormat format() { return {}; }

    /// Asked before exportedBytes(), which fails where there is an alert. The base class knows none.
    [[nodiscard]] virtual std::optional<ZLExportAlert> alertFor(const ZLExportInput& input) const;

    /// The whole contents of the file, or why there are none. It depends on the input alone.
    [[nodiscard]] virtual ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const;

    /// For a format that puts chapters into an existing file: why that gets none of them, in one sentence. Empty when
    /// it gets some, and for any other format.
    [[nodiscard]] virtual QString reasonNothingIsInserted(const ZLExportInput& input) const;

    /// What the destination will not like, one sentence each. Empty for the base class.
    [[nodiscard]] virtual QStringList advice(const ZLExportInput& input) const;

    /// Adds a class to the process-wide list; the base class itself is left out. A class that is registered twice is
    /// listed twice.
    static void registerExporter(const ZLExporterClass& exporterClass);
    /// The registered classes in ascending order of their names; empty when there are none.
    [[nodiscard]] static QList<ZLExporterClass> allExporters();

    /// `text` with ampersand, less-than, greater-than, double quote and apostrophe replaced by their predefined
    /// entities. All other characters pass unchanged, also those that no XML document may contain.
    [[nodiscard]] static QString xmlEncodeString(const QString& text);

    /// "Episode 12.psc" for a document shown as "Episode 12.zelta": its last extension gives way to `fileType`. A
    /// document that is absent or has no name is proposed as "Untitled".
    [[nodiscard]] static QString proposedFileName(const QString& displayName, const QString& fileType);

    /// "Show 12" for "/home/me/Show 12.fcpxml": the last part of a path without its last extension.
    [[nodiscard]] static QString fileBaseName(const QString& path);

protected:
    /// What `append(text, chapter)` adds for each enabled chapter, in list order.
    template <typename Append>
    [[nodiscard]] static QString textOfEnabledChapters(const ZLExportInput& input, Append append)
    {
        QString text;
        for (const ZLChapterPointer& chapter : input.chapters) {
            if (chapter->isEnabled())
                append(text, *chapter);
        }
        return text;
    }
};

/// One class of exporters as a value: what it says about itself, and how to make one.
class ZLExporterClass {
public:
    template <typename Exporter>
    [[nodiscard]] static ZLExporterClass of()
    {
        return { typeid(Exporter), Exporter::format(),
            []() -> std::unique_ptr<ZLExporter> { return std::make_unique<Exporter>(); } };
    }
    using Create = std::function<std::unique_ptr<ZLExporter>()>;
    /// A format that is made by `maker`. Formats of one C++ class count as one, so they are for no registry.
    [[nodiscard]] static ZLExporterClass of(ZLExportFormat format, Create maker);

    [[nodiscard]] const ZLExportFormat& format() const { return m_format; }
    [[nodiscard]] std::unique_ptr<ZLExporter> create() const { return m_create(); }

    /// Whether both stand for the same C++ class.
    bool operator==(const ZLExporterClass& other) const { return m_type == other.m_type; }

private:
    ZLExporterClass(std::type_index type, ZLExportFormat format, Create maker);

    std::type_index m_type;
    ZLExportFormat m_format;
    Create m_create;
};
