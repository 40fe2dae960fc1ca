#pragma once

#include "lists/ZLListForm.h"

/// What was found in a text.
struct ZLReadLists {
    /// Name of the form, see ZLListForm::name.
    QString formName {};
    /// One for each show, at least one.
    QList<ZLChapterList> lists {};
    /// About the text as a whole: a guess that was made, another form that it could be.
    QList<ZLListRemark> remarks {};
};

/// All forms of lists.
namespace ZLListForms {

/// A list with more is refused.
inline constexpr qsizetype MostChapters = 100'000;

/// Those that tell more about themselves come first: of two forms that recognise a text the first one reads it.
[[nodiscard]] const QList<ZLListForm>& all();

/// Those that are written, in the order of the menu.
[[nodiscard]] QList<ZLListForm> written();

/// The bytes of a file of `form`. What the form cannot hold is replaced as ZLListLimit says, and chapters before the
/// beginning are left out, so that the form's own reader gets back what was written.
[[nodiscard]] QByteArray write(const ZLListForm& form, ZLListToWrite list);

/// Reads a list whose form is told by its content. The error says that no form was recognised, or what is wrong.
[[nodiscard]] ZLResult<ZLReadLists> read(const ZLListSource& source);

}
