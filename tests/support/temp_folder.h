#ifndef TESSARA_TESTS_TEMP_FOLDER_H_
#define TESSARA_TESTS_TEMP_FOLDER_H_

#include <filesystem>
#include <fstream>
#include <string>

namespace tessara {

// A fresh folder for one test, removed with everything in it afterwards.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tessara-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }

  // Writes bytes exactly as given, creating folders on the way.
  std::string Write(const std::string& name, const std::string& content) const {
    std::filesystem::path file = std::filesystem::path(path_) / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << content;
    return file.string();
  }

  std::string Read(const std::string& name) const {
    std::ifstream in(std::filesystem::path(path_) / name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }

 private:
  std::string path_;
};

}  // namespace tessara

#endif  // TESSARA_TESTS_TEMP_FOLDER_H_
