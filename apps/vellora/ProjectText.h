#pragma once

#include <QJsonObject>
#include <QStringList>

#include <vellora/model/DVDImage.h>
#include <vellora/model/SpriteHolder.h>

namespace vellora::cli {

/// What a record holds, for people: a line each.
QStringList spriteLines(const CSpriteHolder& holder);
QStringList editLines(const CDVDImage& photo);

/// The same for programs.
QJsonArray spritesToJson(const CSpriteHolder& holder);
QJsonObject editsToJson(const CDVDImage& photo);

}  // namespace vellora::cli
