// SPDX-License-Identifier: GPL-3.0-or-later

#include "faults/SystemCalls.h"

#include "support/Testing.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>
#include <vector>

// The one place from which the kernel lets calls through, so that the handler can make them.
asm(R"(
    .text
    .globl orvikSystemCall
    .type orvikSystemCall, @function
orvikSystemCall:
    mov %rdi, %rax
    mov %rsi, %rdi
    mov %rdx, %rsi
    mov %rcx, %rdx
    mov %r8, %r10
    mov %r9, %r8
    mov 8(%rsp), %r9
    syscall
    .globl orvikAfterSystemCall
orvikAfterSystemCall:
    ret
    .size orvikSystemCall, .-orvikSystemCall
)");
extern "C" long orvikSystemCall(long number, long a, long b, long c, long d, long e, long f);
extern "C" const char orvikAfterSystemCall;

namespace {

constexpr std::size_t longestPath = 4096;
constexpr int mostKinds = 20000;

/// A system call that takes files. In `arguments`, `p1` is a path as the second argument, `f0` a descriptor
/// as the first, `a0` a folder to which the path as the next argument is relative.
struct Call
{
    int number;
    const char* name;
    const char* arguments;
    bool needsRoom = false;
};

constexpr Call calls[] = {
    {SYS_read, "read", "f0"},
    {SYS_write, "write", "f0", true},
    {SYS_open, "open", "p0"},
    {SYS_close, "close", "f0"},
    {SYS_stat, "stat", "p0"},
    {SYS_fstat, "fstat", "f0"},
    {SYS_lstat, "lstat", "p0"},
    {SYS_lseek, "lseek", "f0"},
    {SYS_mmap, "mmap", "f4"},
    {SYS_ioctl, "ioctl", "f0"},
    {SYS_pread64, "pread64", "f0"},
    {SYS_pwrite64, "pwrite64", "f0", true},
    {SYS_readv, "readv", "f0"},
    {SYS_writev, "writev", "f0", true},
    {SYS_access, "access", "p0"},
    {SYS_dup, "dup", "f0"},
    {SYS_sendfile, "sendfile", "f0f1", true},
    {SYS_fcntl, "fcntl", "f0"},
    {SYS_flock, "flock", "f0"},
    {SYS_fsync, "fsync", "f0", true},
    {SYS_fdatasync, "fdatasync", "f0", true},
    {SYS_truncate, "truncate", "p0", true},
    {SYS_ftruncate, "ftruncate", "f0", true},
    {SYS_getdents64, "getdents64", "f0"},
    {SYS_rename, "rename", "p0p1"},
    {SYS_mkdir, "mkdir", "p0", true},
    {SYS_rmdir, "rmdir", "p0"},
    {SYS_creat, "creat", "p0", true},
    {SYS_link, "link", "p0p1", true},
    {SYS_unlink, "unlink", "p0"},
    {SYS_symlink, "symlink", "p1", true},
    {SYS_readlink, "readlink", "p0"},
    {SYS_chmod, "chmod", "p0"},
    {SYS_fchmod, "fchmod", "f0"},
    {SYS_chown, "chown", "p0"},
    {SYS_fchown, "fchown", "f0"},
    {SYS_lchown, "lchown", "p0"},
    {SYS_statfs, "statfs", "p0"},
    {SYS_fstatfs, "fstatfs", "f0"},
    {SYS_fadvise64, "fadvise64", "f0"},
    {SYS_openat, "openat", "a0"},
    {SYS_mkdirat, "mkdirat", "a0", true},
    {SYS_newfstatat, "newfstatat", "a0"},
    {SYS_unlinkat, "unlinkat", "a0"},
    {SYS_renameat, "renameat", "a0a2"},
    {SYS_linkat, "linkat", "a0a2", true},
    {SYS_symlinkat, "symlinkat", "a1", true},
    {SYS_readlinkat, "readlinkat", "a0"},
    {SYS_fchmodat, "fchmodat", "a0"},
    {SYS_fchownat, "fchownat", "a0"},
    {SYS_faccessat, "faccessat", "a0"},
    {SYS_faccessat2, "faccessat2", "a0"},
    {SYS_utimensat, "utimensat", "a0"},
    {SYS_fallocate, "fallocate", "f0", true},
    {SYS_preadv, "preadv", "f0"},
    {SYS_pwritev, "pwritev", "f0", true},
    {SYS_renameat2, "renameat2", "a0a2"},
    {SYS_copy_file_range, "copy_file_range", "f0f2", true},
    {SYS_statx, "statx", "a0"},
    {SYS_openat2, "openat2", "a0"},
};

/// Shared with the processes that are forked.
struct Watch
{
    char folder[longestPath];
    char failed[longestPath];
    SystemCalls::Fault fault;
    int count;
    bool isOn;
    bool isListed; ///< each call is written to the error output
    quint64 kinds[mostKinds];
};

Watch* watching = nullptr;

long pass(long number, const std::array<long, 6>& at)
{
    return orvikSystemCall(number, at[0], at[1], at[2], at[3], at[4], at[5]);
}

bool isInFolder(const char* path)
{
    const std::size_t length = std::strlen(watching->folder);
    return std::strncmp(path, watching->folder, length) == 0 && (path[length] == '/' || path[length] == '\0');
}

/// The path that a descriptor was opened by, in `path`; returns whether it is in the folder.
bool isDescriptorInFolder(long descriptor, char* path)
{
    if (descriptor < 0) return false;
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%ld", descriptor);
    const long length = orvikSystemCall(SYS_readlink, reinterpret_cast<long>(link),
                                        reinterpret_cast<long>(path), longestPath - 1, 0, 0, 0);
    path[length < 0 ? 0 : length] = '\0';
    return isInFolder(path);
}

/// The kernel hands over addresses as numbers.
const char* textAt(long address)
{
    return reinterpret_cast<const char*>(address); // NOLINT(performance-no-int-to-ptr)
}

bool isPathInFolder(long argument, char* path)
{
    const char* text = textAt(argument);
    if (text == nullptr) return false;
    std::snprintf(path, longestPath, "%s", text);
    return isInFolder(path);
}

bool isPathAtInFolder(long descriptor, long argument, char* path)
{
    if (isPathInFolder(argument, path)) return true;
    if (path[0] == '/' || !isDescriptorInFolder(descriptor, path)) return false;
    const std::size_t length = std::strlen(path);
    std::snprintf(path + length, longestPath - length, "/%s", textAt(argument));
    return true;
}

/// Whether a call concerns the folder; `path` is then what it concerns there.
bool concerns(const Call& call, const std::array<long, 6>& at, char* path)
{
    for (const char* next = call.arguments; *next != '\0'; next += 2) {
        const auto index = static_cast<std::size_t>(next[1] - '0');
        const bool isInside = next[0] == 'p' ? isPathInFolder(at.at(index), path)
                              : next[0] == 'f'
                                  ? isDescriptorInFolder(static_cast<int>(at.at(index)), path)
                                  : isPathAtInFolder(static_cast<int>(at.at(index)), at.at(index + 1), path);
        if (isInside) return true;
    }
    return false;
}

bool needsRoom(const Call& call, const std::array<long, 6>& at)
{
    if (call.number == SYS_openat) return (at[2] & O_CREAT) != 0;
    if (call.number == SYS_open) return (at[1] & O_CREAT) != 0;
    return call.needsRoom;
}

bool isWrite(const Call& call)
{
    return call.number == SYS_write || call.number == SYS_pwrite64;
}

bool counts(const Call& call, const std::array<long, 6>& at)
{
    switch (watching->fault.effect) {
    case SystemCalls::Effect::NoSpace:
        return needsRoom(call, at);
    case SystemCalls::Effect::Shorten:
        return isWrite(call);
    default:
        return true;
    }
}

long failing(const Call& call, std::array<long, 6> at)
{
    switch (watching->fault.effect) {
    case SystemCalls::Effect::Kill:
        return orvikSystemCall(SYS_kill, orvikSystemCall(SYS_getpid, 0, 0, 0, 0, 0, 0), SIGKILL, 0, 0, 0, 0);
    case SystemCalls::Effect::Shorten:
        at[2] = (at[2] + 1) / 2;
        return pass(call.number, at);
    case SystemCalls::Effect::NoSpace:
        return -ENOSPC;
    default:
        if (call.number == SYS_close) pass(call.number, at);
        return -EIO;
    }
}

quint64 kindOf(const Call& call, const char* path)
{
    auto kind = static_cast<quint64>(call.number);
    for (const char* next = path; *next != '\0'; ++next)
        kind = kind * 1099511628211U + static_cast<unsigned char>(*next);
    return kind;
}

long answer(const Call& call, const std::array<long, 6>& at)
{
    char path[longestPath] = {};
    if (!watching->isOn || !concerns(call, at, path) || !counts(call, at)) return pass(call.number, at);
    const int number = ++watching->count;
    const SystemCalls::Fault fault = watching->fault;
    if (number <= mostKinds) watching->kinds[number - 1] = kindOf(call, path);
    if (watching->isListed) std::fprintf(stderr, "call %d: %s %s\n", number, call.name, path);
    const bool isLasting = fault.effect == SystemCalls::Effect::NoSpace && fault.at > 0;
    const bool isMeant = isLasting ? number >= fault.at : number == fault.at;
    if (fault.effect == SystemCalls::Effect::None || !isMeant) return pass(call.number, at);
    if (number == fault.at)
        std::snprintf(watching->failed, longestPath, "%s %.*s", call.name, static_cast<int>(longestPath) - 64,
                      path);
    return failing(call, at);
}

void handle(int /*signal*/, siginfo_t* information, void* context)
{
    auto& registers = static_cast<ucontext_t*>(context)->uc_mcontext.gregs;
    const std::array<long, 6> at{registers[REG_RDI], registers[REG_RSI], registers[REG_RDX],
                                 registers[REG_R10], registers[REG_R8],  registers[REG_R9]};
    const auto* call = std::find_if(std::begin(calls), std::end(calls),
                                    [&](const Call& each) { return each.number == information->si_syscall; });
    registers[REG_RAX] = answer(*call, at);
}

/// Hands the calls over that take files, unless the handler itself makes them.
std::vector<sock_filter> makeFilter()
{
    const auto place = reinterpret_cast<std::uint64_t>(&orvikAfterSystemCall);
    const auto load = [](std::size_t offset) {
        return sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset));
    };
    const auto skipUnless = [](std::uint64_t value, std::uint8_t skipped) {
        return sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(value), 0, skipped);
    };
    const auto end = [](std::uint32_t result) { return sock_filter BPF_STMT(BPF_RET | BPF_K, result); };
    constexpr std::size_t instruction = offsetof(seccomp_data, instruction_pointer);
    std::vector<sock_filter> filter{load(instruction),      skipUnless(place, 3),
                                    load(instruction + 4),  skipUnless(place >> 32, 1),
                                    end(SECCOMP_RET_ALLOW), load(offsetof(seccomp_data, nr))};
    for (const Call& call : calls) {
        filter.push_back(skipUnless(static_cast<std::uint64_t>(call.number), 1));
        filter.push_back(end(SECCOMP_RET_TRAP));
    }
    filter.push_back(end(SECCOMP_RET_ALLOW));
    return filter;
}

} // namespace

/// A kernel that takes filters looks for this one, in vain, before it does anything else.
bool SystemCalls::canBeWatched()
{
    return ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, nullptr) != 0 && errno == EFAULT;
}

void SystemCalls::watch(const std::string& folder)
{
    void* shared = ::mmap(nullptr, sizeof(Watch), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) throw std::runtime_error("no memory");
    watching = static_cast<Watch*>(shared);
    std::snprintf(watching->folder, longestPath, "%s", folder.c_str());
    watching->isListed = std::getenv("ORVIK_LIST_CALLS") != nullptr;

    struct sigaction action = {};
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO | SA_NODEFER | SA_RESTART;
    ::sigaction(SIGSYS, &action, nullptr);
    std::vector<sock_filter> filter = makeFilter();
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        throw std::runtime_error("the kernel does not hand system calls over");
}

void SystemCalls::begin(const Fault& fault)
{
    watching->fault = fault;
    watching->count = 0;
    watching->failed[0] = '\0';
    watching->isOn = true;
}

void SystemCalls::end()
{
    watching->isOn = false;
}

std::string SystemCalls::failed()
{
    return watching->failed;
}

std::vector<quint64> SystemCalls::kinds()
{
    return {watching->kinds, watching->kinds + std::min(watching->count, mostKinds)};
}

namespace {

/// Some containers do not let a process watch its calls, or the kernel cannot do it.
class WatchedCalls final : public testing::Environment
{
public:
    void SetUp() override
    {
        if (!SystemCalls::canBeWatched())
            GTEST_SKIP() << "No system call can be made to fail here: the kernel takes no seccomp filter.";
    }
};
const testing::Environment* const watchedCalls = testing::AddGlobalTestEnvironment(new WatchedCalls);

} // namespace
