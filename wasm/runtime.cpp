// What the C library of wasm32 leaves to its host.

extern "C" {

// A module has one thread, which ends when the module does: nothing is left to clean up then.
int __cxa_thread_atexit(void (*)(void*), void*, void*) {
  return 0;
}

}  // extern "C"
