#ifndef TESSARA_GUI_PICTURES_H_
#define TESSARA_GUI_PICTURES_H_

#include <QIcon>
#include <QPixmap>

namespace tessara {

// The pictures of the pages, drawn by the program itself: a chip package for each
// group picture number, the maker's mark, the warning sign and the program's icon.
// Lines are drawn in the palette's text colour on the window colour, as the recoloured
// bitmaps of the pages are.
QPixmap GroupPicture(int bitmap);
QPixmap MakerPicture();
QPixmap WarningPicture();
QIcon ApplicationIcon();

}  // namespace tessara

#endif  // TESSARA_GUI_PICTURES_H_
