#ifndef TESSARA_GENERATOR_OUTPUT_TARGET_H_
#define TESSARA_GENERATOR_OUTPUT_TARGET_H_

#include <string>

namespace tessara {

class Host;

// Where the generated files of the next run go. It lives as long as the peripheral page
// and also tells the project dialogs where to start.
struct OutputState {
  OutputState();  // OutputPath starts as the program's "Generated" folder

  std::string OutputPath;      // full path of the C source file
  std::string OutputFolder;    // OutputPath without the file name, separator kept
  std::string OutputFileName;  // the file name part of OutputPath
  std::string RegisterHeaderName;
  int ProjectInsertion = 0;

  // Takes a target: the path and the name the dialog gave; the folder is the path with
  // the first occurrence of the name cut out.
  void SetTarget(const std::string& path, const std::string& fileName);
};

// The program's fallback folder for generated files, with its trailing separator.
std::string GeneratedFolder();

// "foo.c" -> "foo.h": the last character replaced by "h" when there is more than one.
std::string HeaderNameOf(const std::string& fileName);
// The same rule for a path; a path of one character stays as it is.
std::string HeaderPathOf(const std::string& path);

// The register header's name for a group: "iodefine.h" for the KB family,
// "sfr_QTL6Pconfig.h" for an empty group, else "sfr_<group up to its first blank,
// without "/">config.h".
std::string RegisterHeaderNameFor(const std::string& group, bool kbFamily);

// Writes a generated file as text with CR LF line ends: beside the target first and
// renamed over it, so that a failure never leaves a truncated file where a good one
// stood. Shows "Error opening file" and returns 1 when the target cannot be written.
int WriteGeneratedFile(Host& host, const std::string& path, const std::string& text);

}  // namespace tessara

#endif  // TESSARA_GENERATOR_OUTPUT_TARGET_H_
