#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

/// The text of a list whose form is not known yet, with what all forms ask of it.
class ZLListSource {
public:
    /// A longer text is refused: it is no list of chapters.
    static constexpr qsizetype MostBytes = 16 * 1024 * 1024;
    static constexpr qsizetype MostLines = 1'000'000;

    /// From the bytes of a file: UTF-8, UTF-16 or UTF-32 with a byte order mark, UTF-16 without one where every second
    /// byte tells it, UTF-8 without one, and else Latin-1. The error says why the bytes are no text.
    [[nodiscard]] static ZLResult<ZLListSource> fromBytes(const QByteArray& bytes);
    /// From the clipboard.
    [[nodiscard]] static ZLResult<ZLListSource> fromText(const QString& text);

    ZLListSource(const ZLListSource&) = delete;
    ZLListSource& operator=(const ZLListSource&) = delete;
    ZLListSource(ZLListSource&&) = default;
    ZLListSource& operator=(ZLListSource&&) = default;

    /// Without a byte order mark.
    [[nodiscard]] const QString& text() const { return m_text; }
    /// Without their ends, which may be "\n", "\r\n" or "\r".
    [[nodiscard]] const QList<QStringView>& lines() const { return m_lines; }
    /// The first line that is not blank; null when there is none.
    [[nodiscard]] QStringView firstFullLine() const;
    /// Whether the bytes were no UTF-8 and were read as Latin-1, which is a guess.
    [[nodiscard]] bool isGuessedLatin1() const { return m_isGuessedLatin1; }

    /// The whole text as JSON; absent where it is none.
    [[nodiscard]] const std::optional<QJsonDocument>& json() const { return m_json; }
    /// Why a text that begins like JSON is none; empty for all others.
    [[nodiscard]] const QString& jsonProblem() const { return m_jsonProblem; }
    /// Local name of the outermost element; empty where the text is no XML.
    [[nodiscard]] const QString& xmlRootName() const { return m_xmlRootName; }

private:
    explicit ZLListSource(QString text);
    void splitLines();
    void lookForJson();
    void lookForXml();

    QString m_text;
    QList<QStringView> m_lines;
    std::optional<QJsonDocument> m_json;
    QString m_jsonProblem;
    QString m_xmlRootName;
    bool m_isGuessedLatin1 = false;
};
