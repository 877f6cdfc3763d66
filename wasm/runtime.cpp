// What the libraries of wasm32 leave to their host.

// The kind of all C++ exceptions: one address. Where code may be moved, the compiler counts on
// somebody else to declare it; elsewhere it does so itself.
#if defined(__PIC__)
asm(".tagtype __cpp_exception i32\n.globl __cpp_exception\n__cpp_exception:\n");
#endif

extern "C" {

// A module has one thread, which ends when the module does: nothing is left to clean up then.
int __cxa_thread_atexit(void (*)(void*), void*, void*) {
  return 0;
}

}  // extern "C"
