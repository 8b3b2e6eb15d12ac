#ifndef TESSARA_GUI_FILE_FILTER_H_
#define TESSARA_GUI_FILE_FILTER_H_

#include <QString>

namespace tessara {

// The core writes file filters as pairs "Name|patterns|...||", patterns separated by
// ";". A Qt file dialog wants "Name (*.a *.b);;...": the names already show their
// patterns, so only the separators change.
QString QtFileFilter(const char* filter);

// The extension a file dialog adds to a name typed without one: that of the first
// pattern ("c" for "*.c;*.h"), empty for "*.*".
QString DefaultSuffix(const char* filter);

}  // namespace tessara

#endif  // TESSARA_GUI_FILE_FILTER_H_
