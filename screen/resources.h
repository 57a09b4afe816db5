#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <span>

namespace chengheng {

/// How a region's picture stands out from the background.
enum class PictureKind { scene, entry, outlinedEntry };

/// A picture of the host. Those of regions carry the caption that stands beside them.
struct PictureResource {
    int number;
    const char* file;
    const char* caption;
    PictureKind kind;
};

/// Null when there is none of that number.
const PictureResource* pictureResource(int number);

/// A picture in its own size, drawn for a screen with so many pixels to a unit; null pixmap
/// when there is none of that number.
QPixmap loadBitmap(int number, qreal pixelRatio);

/// A line of a menu; command 0 is a separator.
struct MenuItemResource {
    int command;
    const char* caption;
};

/// The lines of a menu's part; empty when there is none.
std::span<const MenuItemResource> menuResource(int menu, int part);

QIcon applicationIcon();

/// The small picture of a command: "print", "add", ...; null icon when there is none of that
/// name.
QIcon toolIcon(const char* name);

/// Makes the pictures and pages known. Called before anything is shown; again does no harm.
void loadHostResources();

}  // namespace chengheng
