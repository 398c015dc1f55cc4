#include "app/headless/option_list.h"

#include <utility>

#include "app/headless/option_set.h"

namespace quillon::headless {
namespace {

ListedOption listedOption(const CLI::Option& option) {
  ListedOption result;
  for (const std::string& name : option.get_snames()) result.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) result.names.push_back("--" + name);
  if (option.get_items_expected_max() > 0) result.value = option.get_type_name();
  result.help = option.get_description();
  return result;
}

}  // namespace

std::vector<ListedOption> listOptions() {
  OptionSet set;
  std::vector<ListedOption> list;
  for (const CLI::Option* const option : std::as_const(set.app()).get_options()) {
    list.push_back(listedOption(*option));
  }
  return list;
}

}  // namespace quillon::headless
