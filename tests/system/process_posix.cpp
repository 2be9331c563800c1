#include "system/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>

void set_environment(const std::string& name, const std::string& value) {
  setenv(name.c_str(), value.c_str(), 1);
}

double processor_seconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

int run_program(const Start& start) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  const auto redirect = [&](int stream, const std::string& file, int flags) {
    if (!file.empty()) posix_spawn_file_actions_addopen(&actions, stream, file.c_str(), flags, 0666);
  };
  redirect(STDIN_FILENO, start.in, O_RDONLY);
  redirect(STDOUT_FILENO, start.out, O_WRONLY | O_CREAT | O_TRUNC);
  redirect(STDERR_FILENO, start.err, O_WRONLY | O_CREAT | O_TRUNC);
  posix_spawn_file_actions_addchdir_np(&actions, start.folder.c_str());
  std::vector<char*> words{const_cast<char*>(start.program.c_str())};
  for (const std::string& word : start.words) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  pid_t child = -1;
  int status = -1;
  if (posix_spawn(&child, start.program.c_str(), &actions, nullptr, words.data(), environ) == 0)
    waitpid(child, &status, 0);
  posix_spawn_file_actions_destroy(&actions);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
