#pragma once

#include "platform/ZLResult.h"
#include "platform/archive/ZLArchivedDictionary.h"
#include "platform/archive/ZLBinaryPropertyListReader.h"
#include "platform/archive/ZLKeyedArchiveNames.h"

#include <QHash>
#include <QVariant>

#include <deque>
#include <optional>
#include <vector>

/// Follows the references of one archive from its root. Every object is converted once; an error ends everything.
class ZLArchiveDecoder {
public:
    /// `list` has to live as long as the decoder.
    ZLArchiveDecoder(const ZLBinaryPropertyListReader& list, ZLDictionaryForm form);
    /// The value under the key "root", or an error that says why there is none. To be asked for once.
    ZLResult<QVariant> root();

private:
    using ArchivedObject = ZLBinaryPropertyListObject;

    /// A value with what a walk through it costs.
    struct Node {
        QVariant value;
        quint32 weight = 1;
        /// Levels of collections in it.
        qint32 height = 0;
    };
    struct Keys {
        QStringList texts;
        QList<quint32> weights;
    };
    using Field = ZLArchivedRecord::Field;
    static constexpr quint32 kUnread = 0;
    static constexpr quint32 kInWork = 1;
    static constexpr quint32 kFirstMemo = 2;
    static constexpr quint8 kUnreadField = 0xFF;

    bool fail(const char* error);
    bool spend(quint64 bytes);
    bool convertArchive(Node& node);
    bool convertPlace(quint64 reference, int depth, Node& node);
    bool convert(quint64 index, int depth, Node& node);
    bool convertMemo(const Node& memo, int depth, Node& node);
    bool convertScalar(const ArchivedObject& object, Node& node);
    bool convertRecord(const ArchivedObject& object, int depth, Node& node);
    bool convertDictionary(const ZLArchivedRecord& record, int depth, Node& node);
    bool readKeys(const ArchivedObject& array, int depth, Keys& keys);
    bool convertArray(const ZLArchivedRecord& record, int depth, Node& node);
    bool convertWrapped(const ZLArchivedRecord& record, Field field, QMetaType::Type type, Node& node);
    bool convertDate(const ZLArchivedRecord& record, Node& node);
    bool convertUuid(const ZLArchivedRecord& record, Node& node);
    bool addToParent(Node& parent, const Node& child);
    bool readRecord(const ArchivedObject& object, ZLArchivedRecord& record);
    /// FieldCount for an object that names no field.
    std::size_t fieldNamedBy(quint64 index);
    bool readClass(const ZLArchivedRecord& record, ZLArchivedClass& which);
    [[nodiscard]] std::optional<quint64> indexBehind(const ArchivedObject& uid) const;
    [[nodiscard]] ArchivedObject objectIn(const ZLArchivedRecord& record, Field field) const;

    const ZLBinaryPropertyListReader& m_list;
    ZLDictionaryForm m_form;
    ArchivedObject m_objects;
    /// By index of the property list object: unread, in work, or its place in m_memos with kFirstMemo added.
    std::vector<quint32> m_states;
    /// By the same index: the field that a text names, for every record has the same names.
    std::vector<quint8> m_fields;
    std::deque<Node> m_memos;
    QHash<quint64, ZLArchivedClass> m_classes;
    QByteArrayView m_lastKeyReferences;
    Keys m_lastKeys;
    /// Objects that do not overlap cannot ask for more bytes than the file has.
    quint64 m_bytesLeft;
    const char* m_error;
};
