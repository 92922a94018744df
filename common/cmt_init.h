// Library start-up: finds the VM and registers the process with the platform.
#ifndef TARNWICK_CMT_INIT_H
#define TARNWICK_CMT_INIT_H

namespace tarnwick {

/** Starts the library: call {@link #init()} once, before any other module is used. */
class cmt_init {
public:
    virtual ~cmt_init() {}
    /**
     * Finds the running Java VM and registers the process with the platform's process manager,
     * which every device service needs before it answers.
     * @return the platform registration's result: 0 when the library is ready, another value when
     * the device refused the registration
     */
    static int init();
    static int mixsInit();
};

}  // namespace tarnwick

#endif
