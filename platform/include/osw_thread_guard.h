// Platform thread guard: a scoped process-wide lock.
#ifndef OSW_THREAD_GUARD_H
#define OSW_THREAD_GUARD_H

class OSW_Thread_Guard {
public:
    OSW_Thread_Guard();
    ~OSW_Thread_Guard();
    OSW_Thread_Guard(const OSW_Thread_Guard&) = delete;
    OSW_Thread_Guard& operator=(const OSW_Thread_Guard&) = delete;
};

#endif
