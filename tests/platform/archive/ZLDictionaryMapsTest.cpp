#include "platform/archive/ZLDictionaryMaps.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QVariant dictionary(const QStringList& keys, const QVariantList& values)
{
    return QVariant::fromValue(ZLArchivedDictionary { keys, values });
}

}

TEST(ZLDictionaryMapsTest, EveryDictionaryBecomesAMap)
{
    const QVariant leaf = dictionary({ u"n"_s }, { 1 });
    const ZLArchivedDictionary root { { u"list"_s, u"text"_s }, { QVariantList { leaf, 2, QVariantList() }, u"t"_s } };
    const QVariantMap leafMap { { u"n"_s, 1 } };
    EXPECT_EQ(ZLDictionaryMaps::of(root),
        QVariantMap({ { u"list"_s, QVariantList { leafMap, 2, QVariantList() } }, { u"text"_s, u"t"_s } }));
}

TEST(ZLDictionaryMapsTest, TheLastOfEqualKeysCounts)
{
    EXPECT_EQ(ZLDictionaryMaps::of({ { u"n"_s, u"n"_s }, { 1, 2 } }), QVariantMap({ { u"n"_s, 2 } }));
}

/// Two to the power of 60 values would never end.
TEST(ZLDictionaryMapsTest, SharedValuesAreMadeOnce)
{
    QVariant value = dictionary({ u"n"_s }, { 1 });
    for (int level = 0; level < 30; ++level) {
        value = dictionary({ u"a"_s, u"b"_s }, { value, value });
        value = QVariantList { value, value };
    }
    QVariant walked = ZLDictionaryMaps::of({ { u"root"_s }, { value } }).value(u"root"_s);
    for (int level = 0; level < 30; ++level)
        walked = walked.toList().value(1).toMap().value(u"b"_s);
    EXPECT_EQ(walked, QVariant(QVariantMap { { u"n"_s, 1 } }));
}
