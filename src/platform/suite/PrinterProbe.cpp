#include "platform/suite/PrinterProbe.h"

#include <cups/cups.h>

namespace platform::suite {

namespace {
std::shared_ptr<PrinterProbe>& Slot() {
  static std::shared_ptr<PrinterProbe> probe = std::make_shared<CupsPrinterProbe>();
  return probe;
}
}  // namespace

PrinterProbe& PrinterProbe::Current() { return *Slot(); }

std::shared_ptr<PrinterProbe> PrinterProbe::Install(std::shared_ptr<PrinterProbe> probe) {
  auto previous = Slot();
  Slot() = probe ? std::move(probe) : std::make_shared<CupsPrinterProbe>();
  return previous;
}

std::string CupsPrinterProbe::DefaultPrinter() {
  cups_dest_t* dests = nullptr;
  const int count = cupsGetDests2(CUPS_HTTP_DEFAULT, &dests);
  const cups_dest_t* dest = cupsGetDest(nullptr, nullptr, count, dests);
  std::string name = dest && dest->name ? dest->name : "";
  cupsFreeDests(count, dests);
  return name;
}

}  // namespace platform::suite
