#pragma once

/// @file
/// Saving a show and its edits as one step, although they are two files.

#include <QString>

#include "common/ShowFile.h"

namespace vellora {
class CImageObj;
}

namespace vellora::hostkit {

/// Loads the edits of a show into a document that holds its photos in the same order. A project
/// file that is not there is no problem: a new show has none.
/// @return Why the project file cannot be read; empty when it was.
QString loadEdits(const Show& show, CImageObj& document);

/// Saves a show and the edits of its photos.
///
/// The edits go to a project file that the show on disk does not name; writing the show then
/// switches from the old pair to the new one, and only after that is the old project file removed.
/// Whenever the program or the machine stops, show and edits fit together. The names used in turn
/// are NAME.xml and NAME.alt.xml for a show NAME.vshow; where a file of another origin or of
/// another show has one of them it is left alone, and NAME.alt2.xml and so on to NAME.alt9.xml are
/// used instead. A project file that cannot be read is never removed, because it may be repaired by
/// hand, and neither is one that another show in the folder names, as a copy of this one does.
///
/// @param show      `projectPath` becomes the file that holds the edits.
/// @param document  Its photos are those of the show, in the same order.
/// @return False with the reason in `error`; the files on disk are then as they were.
bool saveShow(const QString& file, Show& show, CImageObj& document, QString* error);

}  // namespace vellora::hostkit
