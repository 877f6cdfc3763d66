#include "interruption.h"

#include <csignal>

#include <pthread.h>

namespace glyphwright::cli {
namespace {

sigset_t interruptingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, number);
  return signals;
}

void endBy(int number) {
  std::signal(number, SIG_DFL);
  sigset_t one;
  sigemptyset(&one);
  sigaddset(&one, number);
  pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
  std::raise(number);
}

}  // namespace

Interruption::Interruption(PendingFiles& files) {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  const sigset_t signals = interruptingSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  listener_ = std::thread([this, &files, signals] {
    int number = 0;
    if (sigwait(&signals, &number) != 0 || over_) return;
    files.abandon();
    endBy(number);
  });
}

Interruption::~Interruption() {
  over_ = true;
  pthread_kill(listener_.native_handle(), SIGINT);
  listener_.join();
}

}  // namespace glyphwright::cli
