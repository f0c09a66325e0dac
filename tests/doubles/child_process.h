#pragma once

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

// What a forked copy of the test does is its own: it may lose its rights, or be killed in mid-work.
// The child ends with the value of `lavoro`; the parent waits for it by default.
inline pid_t avviaFiglio(const std::function<int()>& lavoro) {
    const pid_t figlio = fork();
    if (figlio == 0) _exit(lavoro());
    return figlio;
}

// The exit value of a child; minus the signal when it was killed.
inline int attendiFiglio(pid_t figlio) {
    int stato = 0;
    if (waitpid(figlio, &stato, 0) != figlio) return -1000;
    return WIFSIGNALED(stato) ? -WTERMSIG(stato) : WEXITSTATUS(stato);
}

inline int inUnFiglio(const std::function<int()>& lavoro) {
    return attendiFiglio(avviaFiglio(lavoro));
}

// Runs `lavoro` in a child without an administrator's rights.
inline int comeUtenteComune(const std::function<int()>& lavoro) {
    constexpr uid_t nessuno = 65534;
    return inUnFiglio([&] {
        if (geteuid() == 0 && (setegid(nessuno) != 0 || seteuid(nessuno) != 0)) return 99;
        return lavoro();
    });
}
