#pragma once

#include <QtGlobal>

#include <cerrno>
#include <cstddef>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

/// From now on this thread, and what it starts, seems to be on a file system that makes no files
/// without a name, or with \a links on one that makes them and cannot give them one. False if the
/// system cannot be made to refuse this.
inline bool refuseNameless(bool links = false)
{
    const quint32 call = links ? SYS_linkat : SYS_openat;
    const quint32 flags = links ? AT_EMPTY_PATH | AT_SYMLINK_FOLLOW : O_TMPFILE & ~O_DIRECTORY;
    const auto argument = quint32(offsetof(seccomp_data, args)) + (links ? 32 : 16)
        + (Q_BYTE_ORDER == Q_BIG_ENDIAN ? 4 : 0); // The lower half of the fifth or the third.
    sock_filter code[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, argument),
        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, flags, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EOPNOTSUPP),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{std::size(code), code};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0
        && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}
