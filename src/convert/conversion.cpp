#include "convert/conversion.h"

#include "base/number_text.h"

namespace quillon::convert {

Conversion::Conversion(const ConversionJob& wanted, ConversionHost& hostOfAll,
                       const Surroundings& around)
    : job(wanted),
      host(hostOfAll),
      surroundings(around),
      texts(around.languageOffset),
      messages(texts),
      control(host, texts, around.updateInterval) {
  job.drawingName = base::trimBlanks(wanted.drawingName);
}

void Conversion::refuse(const Message& message) {
  host.tell(message);
  throw EndOfConversion{};
}

}  // namespace quillon::convert
