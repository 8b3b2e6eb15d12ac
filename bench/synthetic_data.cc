#include "synthetic_data.h"

#include <filesystem>
#include <fstream>

#include "core/text.h"

namespace tessara {

namespace {

// A small deterministic generator, so that every run measures the same bytes.
class Random {
 public:
  explicit Random(unsigned seed) : state_(seed * 2654435761u + 1u) {}
  unsigned Next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return state_;
  }
  int Between(int low, int high) { return low + static_cast<int>(Next() % static_cast<unsigned>(high - low + 1)); }

 private:
  unsigned state_;
};

struct Kind {
  const char* name;  // configuration name stem
  const char* tag;   // resource tag
  const char* dialog;
};

constexpr Kind kKinds[] = {
    {"Port", "IID_DIALOG_PORT", "port"},          {"INT", "IID_DIALOG_INTERRUPT", "INT"},
    {"Timer RA", "IID_DIALOG_TIMERRA", "Timer RA"}, {"UART", "IID_DIALOG_UART_VER2", "UART"},
    {"Timer A", "IID_DIALOG_TIMERA", "Timer A"},  {"A/D Converter", "IID_DIALOG_ADC", "ADC"},
    {"SIO", "IID_DIALOG_SIO", "SIO"},             {"DMA", "IID_DIALOG_DMA", "DMA"},
};

void Line(std::string& text, const std::string& line) {
  text += line;
  text += "\r\n";
}

void Header(std::string& text, const std::string& name) {
  text += '[';
  text += name;
  text += "]\r\n";
}

std::string ConfigurationName(int k) {
  if (k == 1) return "Clock";
  const Kind& kind = kKinds[static_cast<std::size_t>(k) % std::size(kKinds)];
  return FormatC("%s %d", kind.name, k);
}

// One line of a panel section: controls with their ";"-cells, rows with limits and
// register texts, as panels read them.
std::string PanelLine(Random& random, int number) {
  switch (random.Next() % 6) {
    case 0:
      return FormatC("Radiobox_%d=Mode;Timer;Pulse;Event;%s", number, random.Next() % 2 ? "1100" : "0011");
    case 1:
      return FormatC("Combobox_%d=Source;f1;f2;f8;f32;%d", number, random.Between(0, 3));
    case 2:
      return FormatC("ComboEditbox_%d=Period;us;H'%04X;H'0001;H'FFFF", number, random.Next() & 0xFFFF);
    case 3:
      return FormatC("Checkbox_%d=Interrupt;H'%02X;0101", number, random.Next() & 0xFF);
    case 4:
      return FormatC("Row_%d=tra%dic=H'%02X;priority %d", number, number, random.Next() & 0xFF,
                     random.Between(0, 7));
    default:
      return FormatC("Label_%d=Divide by %d", number, 1 << random.Between(0, 7));
  }
}

}  // namespace

std::string SyntheticDataFile(int index, const SyntheticShape& shape) {
  Random random(shape.seed * 7919u + static_cast<unsigned>(index));
  const std::string group = FormatC("SYN/%02d Group", index);
  std::string text;
  Line(text, FormatC("// Synthetic chip data, group %d of a benchmark set.", index));
  Line(text, "");
  Header(text, "Database");
  Line(text, "Series=SYN");
  Line(text, "Group=" + group);
  for (int j = 1; j <= 32; ++j) {
    Line(text, FormatC("Part_No_%d=SYN%02d%02d;%dKbytes;%dKbytes;%dKbytes", j, index, j, 8 << (j % 5),
                       1 << (j % 4), j % 3 == 0 ? 0 : 2));
  }
  for (int j = 1; j <= 8; ++j) Line(text, FormatC("Color_%d=Colour_%d=%d,%d,%d", j, j, j * 30, 255 - j * 30, 0));
  Line(text, "");
  Header(text, "Configuration_" + group);
  for (int k = 1; k <= shape.configurations; ++k) Line(text, FormatC("Configuration_%d=", k) + ConfigurationName(k));
  Line(text, "");
  Header(text, "ResourceID_" + group);
  for (int k = 1; k <= shape.configurations; ++k) {
    const char* tag = k == 1 ? "IID_DIALOG_CLOCK" : kKinds[static_cast<std::size_t>(k) % std::size(kKinds)].tag;
    Line(text, FormatC("ResourceID_%d=%s", k, tag));
  }
  for (int k = 1; k <= shape.configurations; ++k) {
    Line(text, "");
    Header(text, ConfigurationName(k) + "_" + group);
    Line(text, "// Panel data: controls, their masks and the register rows they write.");
    const char* dialog = k == 1 ? "Clock" : kKinds[static_cast<std::size_t>(k) % std::size(kKinds)].dialog;
    Line(text, std::string("Dialog=") + dialog);
    int lines = random.Between(shape.minLines, shape.maxLines) - 1;
    for (int n = 1; n <= lines; ++n) {
      if (random.Next() % 16 == 0) Line(text, "");
      if (random.Next() % 16 == 0) Line(text, "// the next control depends on the one above");
      Line(text, PanelLine(random, n));
    }
  }
  // Templates fill the file up to its size, as the generator's texts do in real files.
  Line(text, "");
  Header(text, "Default_" + group);
  for (int n = 0; text.size() < shape.fileBytes; ++n) {
    Line(text, FormatC("    /* step %d */ REG%03d = 0x%02X;    /* written by the generated start-up code */",
                       n, n % 1000, n & 0xFF));
  }
  return text;
}

SyntheticHome WriteSyntheticHome(const std::string& folder, const SyntheticShape& shape) {
  namespace fs = std::filesystem;
  SyntheticHome home;
  home.folder = folder;
  fs::create_directories(fs::path(folder) / "IO Files");
  std::string ini = "[Database_File]\r\nDebug=\r\n";
  for (int i = 1; i <= shape.files; ++i) {
    std::string name = FormatC("SYN%02d.ini", i);
    std::string text = SyntheticDataFile(i, shape);
    std::string path = (fs::path(folder) / "IO Files" / name).string();
    std::ofstream(path, std::ios::binary) << text;
    home.dataFiles.push_back(path);
    home.totalBytes += text.size();
    ini += FormatC("File%d=%s\r\nFile%d_Checksum=H'%04X\r\n", i, name.c_str(), i, TextChecksum(text));
  }
  ini += "\r\n[Generate]\r\nEnhancedGenerate=0\r\n\r\n[Display]\r\nExtraSetting=0\r\n";
  home.iniPath = (fs::path(folder) / "Tessara.ini").string();
  std::ofstream(home.iniPath, std::ios::binary) << ini;
  return home;
}

}  // namespace tessara
