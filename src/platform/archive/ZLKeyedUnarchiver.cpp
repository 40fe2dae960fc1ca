#include "platform/archive/ZLKeyedUnarchiver.h"

#include "platform/archive/ZLArchiveDecoder.h"

ZLResult<QVariant> ZLKeyedUnarchiver::unarchivedRoot(QByteArrayView data, ZLDictionaryForm form)
{
    const ZLResult<ZLBinaryPropertyListReader> list = ZLBinaryPropertyListReader::open(data);
    if (!list)
        return list.error();
    return ZLArchiveDecoder(list.value(), form).root();
}
