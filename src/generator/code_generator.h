#ifndef TESSARA_GENERATOR_CODE_GENERATOR_H_
#define TESSARA_GENERATOR_CODE_GENERATOR_H_

#include <string>

namespace tessara {

class Application;
class PeripheralPage;
class PeripheralPanel;

// Writes the files of one run from the state of the panels that have a window. It
// knows no registers: it fills the templates of the group's data file with the
// panels' text rows, in the order of the peripheral list.
class CodeGenerator {
 public:
  CodeGenerator(Application& application, PeripheralPage& page);

  // The writers of a run, in their order. Each returns 0, or 1 when its target could
  // not be opened (after the message); a later writer runs all the same.
  int WriteConfigHeader();
  int WriteConfigSource();
  int WriteRegisterHeader();
  int WriteInterruptProgram();
  // All four in their order; the interrupt program only for the KB family.
  void WriteAll();

  // The pieces, for the writers and the tests.
  std::string BuildInitBody(std::string& clockText);
  std::string BuildFunctionTail() const;
  std::string BuildHeaderTail() const;

 private:
  std::string SectionText(const std::string& prefix) const;
  std::string BuildClockText();
  // The panel's window exists and, but for the interrupt kinds, it is in use.
  static bool GateOpen(const PeripheralPanel* panel);
  void Show(const std::string& path);

  Application& application_;
  PeripheralPage& page_;
};

}  // namespace tessara

#endif  // TESSARA_GENERATOR_CODE_GENERATOR_H_
