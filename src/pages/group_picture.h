#ifndef TESSARA_PAGES_GROUP_PICTURE_H_
#define TESSARA_PAGES_GROUP_PICTURE_H_

#include <string_view>

namespace tessara {

// The maker's picture on the selection page, and the picture shown before a group is chosen.
inline constexpr int kMakerPicture = 151;
inline constexpr int kFirstGroupPicture = 156;

// The bitmap that shows a group, by its name compared whole without regard to case;
// 0 for a group outside the table, which shows an empty picture. Every picture is
// recoloured from black to the host's dialog face colour before it is shown.
int GroupPictureOf(std::string_view groupName);

}  // namespace tessara

#endif  // TESSARA_PAGES_GROUP_PICTURE_H_
