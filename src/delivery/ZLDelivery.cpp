#include "delivery/ZLDelivery.h"

#include "platform/ZLShownText.h"
#include "platform/media/file/ZLMediaFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

struct DeliveryTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLDelivery)
};

/// Some forms hold the letters of a web address only, and others as they were typed.
bool isSameLink(const QString& left, const QString& right)
{
    return QUrl::fromPercentEncoding(left.toUtf8()) == QUrl::fromPercentEncoding(right.toUtf8())
        || QUrl(left).toEncoded() == QUrl(right).toEncoded();
}

bool isSameChapter(const ZLMediaChapter& wanted, const ZLMediaChapter& found)
{
    return qAbs(wanted.start - found.start) <= 1 && wanted.title == found.title && isSameLink(wanted.link, found.link);
}

}

ZLResult<QString> ZLDelivery::write(const ZLDeliveryPlan& plan, const QString& output, ZLWorkProgress& progress)
{
    if (plan.toCome.isEmpty())
        return ZLError {
            DeliveryTexts::tr("%1: no enabled chapter lies in this file, so nothing was written.").arg(plan.audioPath)
        };
    if (const ZLStatus written = ZLMediaFile::write(plan.audioPath, plan.toCome, output, progress); !written)
        return written.error();
    const auto found = ZLMediaFile::read(output);
    if (!found)
        return found.error();
    const qsizetype count = countWritten(plan.toCome, found.value());
    const QString text = DeliveryTexts::tr("%1 of %2 chapters are in %3")
                             .arg(count)
                             .arg(plan.toCome.size())
                             .arg(ZLShownText::asOneLine(QFileInfo(output).fileName()));
    const bool hasAll = count == plan.toCome.size() && count == found.value().chapters.size();
    return hasAll ? ZLResult<QString>(text) : ZLResult<QString>(ZLError { text });
}

qsizetype ZLDelivery::countWritten(const ZLMediaChapters& toCome, const ZLMediaContents& found)
{
    qsizetype count = 0;
    qsizetype at = 0;
    for (const ZLMediaChapter& wanted : toCome) {
        qsizetype next = at;
        while (next < found.chapters.size() && !isSameChapter(wanted, found.chapters.at(next)))
            ++next;
        if (next == found.chapters.size())
            continue;
        ++count;
        at = next + 1;
    }
    return count;
}
