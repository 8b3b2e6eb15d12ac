#ifndef TESSARA_PROJECT_PROJECT_FILE_H_
#define TESSARA_PROJECT_PROJECT_FILE_H_

#include <string>

namespace tessara {

class Host;
class PeripheralPage;
class PeripheralPanel;

inline constexpr const char* kProjectExtension = "tsr";
inline constexpr const char* kProjectFilter = "Tessara File (*.tsr)|*.tsr;All Files (*.*)|*.*||";
inline constexpr const char* kSettingsTag = "Series/Group/PartNo:";

// The positions of the three boxes of the first page, counted from 0.
struct BoxPositions {
  int series = 0;
  int group = 0;
  int part = 0;
};

// The project text from line 2 on: the box positions, one line for each panel with a
// window in the order of the tag table, the side settings and the map of opened rows.
std::string ProjectBody(const PeripheralPage& page, BoxPositions boxes, const PeripheralPanel* clock,
                        const PeripheralPanel* clock2);

// The whole file: the checksum line in front of the body.
std::string ProjectFileText(const std::string& body);

// Writes the file as text (CR LF on disk), beside the target first and renamed over
// it. "Unable to open file!" and false when it cannot be written.
bool WriteProjectFile(Host& host, const std::string& path, const std::string& fileText);

// Reads a project file: false with "Unable to open file: \n<path>" when it cannot be
// read, leaving `projectText` alone. Otherwise `projectText` becomes the text behind the
// first line and `checksumOk` tells whether the first line matches it; a mismatch shows
// "Checksum failed!".
bool ReadProjectFile(Host& host, const std::string& path, std::string& projectText, bool& checksumOk);

// The three box positions behind "Series/Group/PartNo:"; false when the tag is missing.
bool ReadBoxPositions(const std::string& projectText, BoxPositions& boxes);

}  // namespace tessara

#endif  // TESSARA_PROJECT_PROJECT_FILE_H_
