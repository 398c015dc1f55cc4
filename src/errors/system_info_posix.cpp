#include <sys/utsname.h>

#include "errors/system_info.h"

namespace quillon::errors {

/// A release such as "6.1.0-13-amd64" is version 6.1, build 0-13-amd64.
SystemInfo systemInfo() {
  struct utsname name = {};
  if (uname(&name) != 0) return {};
  SystemInfo info;
  info.platform = LpstrToString({name.sysname, sizeof name.sysname});
  const std::string release(LpstrToString({name.release, sizeof name.release}));
  const std::size_t major = release.find('.');
  const std::size_t minor = major == std::string::npos ? major : release.find('.', major + 1);
  info.version = release.substr(0, minor);
  if (minor != std::string::npos) info.build = release.substr(minor + 1);
  info.servicePack = LpstrToString({name.version, sizeof name.version});
  return info;
}

}  // namespace quillon::errors
