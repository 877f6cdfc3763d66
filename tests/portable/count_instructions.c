/* A plug-in of the emulator that counts the instructions of a whole run. The emulator's packages do
   not bring its header, so what is used of it is declared here. */
#include <inttypes.h>
#include <stddef.h>
#include <stdio.h>

typedef uint64_t qemu_plugin_id_t;
struct qemu_plugin_tb;
extern void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t,
                                                  void (*)(qemu_plugin_id_t,
                                                           struct qemu_plugin_tb*));
extern size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb*);
extern void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb*, int add, void* to,
                                                     uint64_t value);
extern void qemu_plugin_register_atexit_cb(qemu_plugin_id_t, void (*)(qemu_plugin_id_t, void*),
                                           void*);

__attribute__((visibility("default"))) int qemu_plugin_version = 1;

static uint64_t count;

static void onBlock(qemu_plugin_id_t id, struct qemu_plugin_tb* block) {
  (void)id;
  qemu_plugin_register_vcpu_tb_exec_inline(block, 0, &count, qemu_plugin_tb_n_insns(block));
}

static void onExit(qemu_plugin_id_t id, void* unused) {
  (void)id, (void)unused;
  fprintf(stderr, "instructions: %" PRIu64 "\n", count);
}

__attribute__((visibility("default"))) int qemu_plugin_install(qemu_plugin_id_t id,
                                                               const void* info, int argc,
                                                               char** argv) {
  (void)info, (void)argc, (void)argv;
  qemu_plugin_register_vcpu_tb_trans_cb(id, onBlock);
  qemu_plugin_register_atexit_cb(id, onExit, NULL);
  return 0;
}
