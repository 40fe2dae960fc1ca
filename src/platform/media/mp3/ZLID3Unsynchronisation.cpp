#include "platform/media/mp3/ZLID3Unsynchronisation.h"

QByteArray ZLID3Unsynchronisation::decoded(const QByteArray& bytes)
{
    QByteArray result;
    result.reserve(bytes.size());
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        result.append(bytes.at(at));
        if (uchar(bytes.at(at)) == 0xFF && at + 1 < bytes.size() && bytes.at(at + 1) == 0)
            ++at;
    }
    return result;
}
