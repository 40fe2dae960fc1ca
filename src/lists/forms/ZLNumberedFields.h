#pragma once

#include "lists/ZLListForm.h"

/// Chapters in numbered fields, as OGM files and Vorbis comments have them: CHAPTER01=00:00:00.000, CHAPTER01NAME=Title
/// and CHAPTER01URL=link, with two or three digits.
namespace ZLNumberedFields {

[[nodiscard]] ZLListForm form();

}
