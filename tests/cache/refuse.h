#pragma once

#include <QtGlobal>

#include <cerrno>
#include <cstddef>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

/// From now on the system refuses this thread, and what it starts, the \a call that has any of
/// \a flags in its \a argument. False if it cannot be made to.
inline bool refuse(quint32 call, std::size_t argument, quint32 flags)
{
    const auto low = quint32(offsetof(seccomp_data, args) + 8 * argument)
        + (Q_BYTE_ORDER == Q_BIG_ENDIAN ? 4 : 0);
    sock_filter code[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, low),
        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, flags, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EOPNOTSUPP),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{std::size(code), code};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0
        && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

/// As on a file system that makes no files without a name.
inline bool refuseNamelessFiles()
{
    return refuse(SYS_openat, 2, O_TMPFILE & ~O_DIRECTORY);
}

/// As on one that makes them and cannot give them one.
inline bool refuseLinks()
{
    return refuse(SYS_linkat, 4, AT_EMPTY_PATH | AT_SYMLINK_FOLLOW);
}
