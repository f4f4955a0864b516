// The flat functions make no system call. Each runs, with arguments by chance, in a process of its own that the kernel
// ends at any system call but the one that ends it. Exit status 77 where the kernel takes no such filter.
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "famiglie.h"

namespace {

constexpr int SALTATA = 77;
constexpr int SENZA_FILTRO = 3;
constexpr int CASI = 500;

// Only what ends the process is left.
bool chiudi() {
    sock_filter istruzioni[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_exit_group, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
    };
    const sock_fprog filtro = {std::size(istruzioni), istruzioni};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filtro) == 0;
}

enum class Esito { silenzio, chiamata, altro, senza_filtro };

// What became of a process that makes these calls with all system calls forbidden.
Esito esito(void (*prova)(digest::Caso&, digest::Impronta&)) {
    std::fflush(stdout);
    const pid_t figlio = fork();
    if (figlio == 0) {
        digest::Caso caso(1);
        digest::Impronta impronta;
        if (!chiudi())
            _exit(SENZA_FILTRO);
        for (int i = 0; i < CASI; i++)
            prova(caso, impronta);
        syscall(SYS_exit_group, 0);
    }
    int stato = 0;
    if (figlio < 0 || waitpid(figlio, &stato, 0) != figlio)
        return Esito::altro;
    if (WIFEXITED(stato))
        return WEXITSTATUS(stato) == 0              ? Esito::silenzio
               : WEXITSTATUS(stato) == SENZA_FILTRO ? Esito::senza_filtro
                                                    : Esito::altro;
    return WIFSIGNALED(stato) && WTERMSIG(stato) == SIGSYS ? Esito::chiamata : Esito::altro;
}

}  // namespace

int main() {
    // The filter itself: a process that asks for its parent must not live.
    const Esito controllo = esito([](digest::Caso&, digest::Impronta& impronta) { impronta.segno(getppid()); });
    if (controllo == Esito::senza_filtro) {
        std::printf("skipped: this kernel, or what runs this program, takes no seccomp filter\n");
        return SALTATA;
    }
    if (controllo != Esito::chiamata) {
        std::printf("the filter lets system calls through: nothing would be proved\n");
        return 1;
    }
    int falliti = 0;
    for (const digest::Famiglia& famiglia : digest::famiglie_flat()) {
        const Esito suo = esito(famiglia.prova);
        if (suo == Esito::silenzio)
            continue;
        std::printf("%s %s\n", famiglia.nome, suo == Esito::chiamata ? "made a system call" : "ended its process");
        falliti++;
    }
    std::printf("%zu operations, %d calls each, %d with a system call\n", digest::famiglie_flat().size(), CASI,
                falliti);
    return falliti == 0 ? 0 : 1;
}
