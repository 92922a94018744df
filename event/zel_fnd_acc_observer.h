// Forwards the access-control facade's IC card notifications to AccProxy; a detected card
// arrives as an ICCardInfo with its FeliCa data decoded from the card-data partition.
#ifndef TARNWICK_ZEL_FND_ACC_OBSERVER_H
#define TARNWICK_ZEL_FND_ACC_OBSERVER_H

#include <jni.h>

#include <cstddef>

#include "esv_zel_acc_facade.h"
#include "zel_fnd_observer.h"

namespace tarnwick {

class zel_fnd_acc_observer : public esv_zel_acc_observer, private zel_fnd_observer {
public:
    // Answer to the facade on any failure.
    static constexpr int kFailure = 0x04010A05;

    zel_fnd_acc_observer();

    int init();

    int notify_iccard_detect(ESV_ZEL_ACC_ICCARD_INFO& card_info) override;
    int notify_iccard_read_error(int code) override;
    int notify_iccard_state_change_info(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO& info) override;

private:
    // The fire methods, in the order init() looks them up, all of AccProxy (proxy 0); ICCardInfo and SystemData are built through
    // their class holders.
    enum Method : std::size_t { kICCard, kICCardError, kICCardDevice };
};

}  // namespace tarnwick

#endif
