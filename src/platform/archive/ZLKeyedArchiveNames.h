#pragma once

#include "platform/archive/ZLBinaryPropertyListReader.h"

#include <array>
#include <optional>

/// What an archived object is for us; the mutable variants are the same.
enum class ZLArchivedClass : quint8 { Unknown, Null, Dictionary, Array, Text, Data, Date, Uuid, Url };

/// The fields of an archived object that mean something here, by the index of their value; others are passed over.
struct ZLArchivedRecord {
    enum Field { Class, Keys, Objects, Text, Data, Time, Uuid, Relative, FieldCount };
    std::array<std::optional<quint64>, FieldCount> fields;
};

/// Reads a class record: the class itself, or the nearest known one that it descends from. Nothing when it is no
/// record.
std::optional<ZLArchivedClass> ZLArchivedClassOf(
    const ZLBinaryPropertyListReader& list, const ZLBinaryPropertyListObject& classRecord);

/// Nothing for a field that means nothing here.
std::optional<ZLArchivedRecord::Field> ZLArchivedFieldNamed(const ZLBinaryPropertyListObject& name);
