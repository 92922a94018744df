// Library start-up: finds the VM and registers the process with the platform.
#ifndef TARNWICK_CMT_INIT_H
#define TARNWICK_CMT_INIT_H

namespace tarnwick {

class cmt_init {
public:
    virtual ~cmt_init() {}
    static int init();
    static int mixsInit();
};

}  // namespace tarnwick

#endif
