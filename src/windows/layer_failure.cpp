#include "windows/layer_failure.h"

#include "base/read_error.h"
#include "convert/layer_file.h"
#include "convert/messages.h"
#include "files/output_file.h"
#include "files/paths.h"
#include "texts/error_texts.h"

namespace quillon::windows {

std::string layerFailure(const AppContext& context, const std::string& path,
                         const std::function<void()>& save) {
  const texts::Texts texts = context.texts();
  const convert::Messages messages(texts);
  try {
    save();
    return {};
  } catch (const files::WriteError& error) {
    return messages.unwritableText(path, files::findForCreation(path), error.reason());
  } catch (const convert::NotALayerFile& error) {
    return messages.notALayerFileText(path, error.kind());
  } catch (const base::ReadError& error) {
    return messages.unreadableText(path, texts::reasonText(error.reason(), texts));
  }
}

}  // namespace quillon::windows
