#pragma once
#include <memory>
#include <string>

namespace platform::suite {

/// Where the default printer is asked for: the print system in the program, a fixed
/// answer in tests (which must not depend on the machine's printers).
class PrinterProbe {
 public:
  virtual ~PrinterProbe() = default;
  /// The default printer's name; "" when there is no printer or no default one.
  virtual std::string DefaultPrinter() = 0;

  /// The probe in use (CupsPrinterProbe until another is installed).
  static PrinterProbe& Current();
  /// Installs `probe` (none: the CUPS one) and returns the one it replaces.
  static std::shared_ptr<PrinterProbe> Install(std::shared_ptr<PrinterProbe> probe);
};

/// Asks CUPS for the default destination (the user's lpoptions, then the scheduler).
class CupsPrinterProbe : public PrinterProbe {
 public:
  std::string DefaultPrinter() override;
};

/// A probe that answers what it was given.
class FixedPrinterProbe : public PrinterProbe {
 public:
  explicit FixedPrinterProbe(std::string name) : m_name(std::move(name)) {}
  std::string DefaultPrinter() override { return m_name; }

 private:
  std::string m_name;
};

/// Installs a probe for the life of the object and puts the previous one back after.
class ScopedPrinterProbe {
 public:
  explicit ScopedPrinterProbe(std::shared_ptr<PrinterProbe> probe) : m_previous(PrinterProbe::Install(std::move(probe))) {}
  ~ScopedPrinterProbe() { PrinterProbe::Install(m_previous); }
  ScopedPrinterProbe(const ScopedPrinterProbe&) = delete;
  ScopedPrinterProbe& operator=(const ScopedPrinterProbe&) = delete;

 private:
  std::shared_ptr<PrinterProbe> m_previous;
};

}  // namespace platform::suite
