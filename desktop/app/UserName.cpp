#include "desktop/app/UserName.h"

#include <QtGlobal>

#include "lumira/commands/UserName.h"

#if defined(Q_OS_UNIX)
#include <pwd.h>
#include <unistd.h>
#endif

namespace desktop {
namespace {

std::string AccountName() {
#if defined(Q_OS_UNIX)
  const passwd* account = getpwuid(geteuid());
  return account && account->pw_name ? account->pw_name : "";
#else
  return qEnvironmentVariable("USERNAME").toStdString();
#endif
}

}  // namespace

std::string UserName() {
  const std::string told = lumira::UserOfEnvironment();
  if (told != lumira::kUnknownUser) return told;
  const std::string account = AccountName();
  return lumira::FindUserNameProblem(account) ? told : account;
}

}  // namespace desktop
