#ifndef TESSARA_CORE_INI_H_
#define TESSARA_CORE_INI_H_

#include <cstddef>
#include <string>

namespace tessara {

// Ini files by the profile-string rules the data files and the program's ini are
// written for: section and key names compare without regard to case, blanks around a
// key and its value are dropped, the first match wins, and the value is cut to the
// caller's buffer (its size counts the terminator, so size - 1 characters).
inline constexpr std::size_t kProfileBufferSize = 2500;
inline constexpr std::size_t kProgramIniBufferSize = 512;

// Returns the value, or `fallback` when the file, the section or the key is absent.
// `found` (optional) tells whether the key was there.
std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& fallback, const std::string& path,
                              std::size_t bufferSize = kProfileBufferSize, bool* found = nullptr);

// The same over a file already in memory.
std::string ReadProfileStringFromText(const std::string& fileText, const std::string& section,
                                      const std::string& key, const std::string& fallback,
                                      std::size_t bufferSize = kProfileBufferSize,
                                      bool* found = nullptr);

// Creates the file, the section or the key as needed; every other line stays as it
// was. Returns false when the file cannot be written.
bool WriteProfileString(const std::string& section, const std::string& key,
                        const std::string& value, const std::string& path);

// The program's ini: Tessara.ini in the program folder, unless a path is given.
std::string ProgramIniPath();
std::size_t ReadProgramIni(const std::string& section, const std::string& key, std::string& out,
                           const std::string& iniPath = "");
bool WriteProgramIni(const std::string& section, const std::string& key, const std::string& value,
                     const std::string& iniPath = "");

}  // namespace tessara

#endif  // TESSARA_CORE_INI_H_
