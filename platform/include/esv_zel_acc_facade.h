// Access-control facade: IC card reader notifications and their records.
//
// The records are shared by address with the closed facade library, so their layout is fixed
// and checked at compile time on the host and on the device.
#ifndef ESV_ZEL_ACC_FACADE_H
#define ESV_ZEL_ACC_FACADE_H

#include <stddef.h>
#include <stdint.h>

#include <string>

// Card reader device types, one bit each.
#define ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_A 1
#define ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_B 2
#define ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_C 4
#define ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_HID 8
#define ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_MAG 16
#define ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_LEGIC 32

// Text sizes, terminating zero included; unsigned, as Java sees them (long).
#define ESV_ZEL_ACC_CARD_ID_SIZE 256u
#define ESV_ZEL_ACC_FELICA_SYSTEM_CODE 16u
#define ESV_ZEL_ACC_FELICA_SERVICE_CODE_1 16u
#define ESV_ZEL_ACC_FELICA_SERVICE_CODE_2 16u

// The partition in which the device leaves the data read from a card, and its size.
#define ESV_ZEL_ACC_ICCARD_DATA_PARTITION "DVC_ACC_ICCARD_DATA_PARTITION"
#define ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE 16256

/** A card held to the reader. */
struct ESV_ZEL_ACC_ICCARD_INFO {
    char card_id[ESV_ZEL_ACC_CARD_ID_SIZE];  ///< the card's identifier as text
    uint32_t card_type;                      ///< 1 to 6
    uint16_t card_data_size;                 ///< 0: no card data in the partition
    int32_t blkid;                           ///< block of the partition that holds the data
};

/** The reader itself changed state. */
struct ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO {
    uint16_t product_id;
    uint16_t vendor_id;
    uint8_t card_types;
    int32_t state;  ///< 1: connected
};

/** FeliCa reading setting of one setting site. */
struct ESV_ZEL_ACC_FELICA_SETTING_INFO {
    std::string system_code;
    std::string service_code_1;
    std::string service_code_2;
    unsigned char blk_num_1;
    unsigned char blk_num_2;
};

/** The reader's identity and the card types it supports (ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_* bits). */
struct ESV_ZEL_ACC_ICCARD_DEVICE_INFO {
    uint16_t product_id;
    uint16_t vendor_id;
    uint8_t card_types;
};

/** What the reader reads from a FeliCa (TypeC) card; the values belong to the platform. */
enum ESV_ZEL_ACC_TYPE_C_READ_TYPE : int {
    ESV_ZEL_ACC_TYPE_C_READ_NONE = 0,
    ESV_ZEL_ACC_TYPE_C_READ_IDM = 1,
    ESV_ZEL_ACC_TYPE_C_READ_FELICA = 2
};

/** The FeliCa setting sites; 0 names none. */
enum ESV_ZEL_ACC_FELICA_SETTING_SITE : int {
    ESV_ZEL_ACC_FELICA_SETTING_SITE_NONE = 0,
    ESV_ZEL_ACC_FELICA_SETTING_SITE_1 = 1,
    ESV_ZEL_ACC_FELICA_SETTING_SITE_2 = 2
};

#ifndef SWIG
#include "esv_zel_layout.h"
ESV_ZEL_SIZE(ESV_ZEL_ACC_ICCARD_DEVICE_INFO, 6);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_DEVICE_INFO, product_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_DEVICE_INFO, vendor_id, 2);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_DEVICE_INFO, card_types, 4);

ESV_ZEL_SIZE(ESV_ZEL_ACC_ICCARD_INFO, 268);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_INFO, card_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_INFO, card_type, 256);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_INFO, card_data_size, 260);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_INFO, blkid, 264);

ESV_ZEL_SIZE(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO, product_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO, vendor_id, 2);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO, card_types, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO, state, 8);
#endif

namespace tarnwick {

/** Receives the access-control facade's notifications, one at a time, on the facade's thread. */
class esv_zel_acc_observer {
public:
    virtual ~esv_zel_acc_observer() {}
    virtual int notify_iccard_detect(ESV_ZEL_ACC_ICCARD_INFO& info) = 0;
    virtual int notify_iccard_read_error(int code) = 0;
    virtual int notify_iccard_state_change_info(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO& info) = 0;
};

/** Process-wide singleton of the access-control service. */
class esv_zel_acc_facade {
public:
    static esv_zel_acc_facade* esv_zel_acc_get_instance();

    unsigned long esv_zel_acc_add_observer(esv_zel_acc_observer* observer);
    unsigned long esv_zel_acc_remove_observer(esv_zel_acc_observer* observer);

    /** The IC card reader and how it reads cards. */
    unsigned long esv_zel_acc_get_iccard_device_info(ESV_ZEL_ACC_ICCARD_DEVICE_INFO& info);
    unsigned long esv_zel_acc_get_rw_status(unsigned int& status);
    unsigned long esv_zel_acc_set_iccard_read_type(unsigned char type);
    unsigned long esv_zel_acc_set_felica_read_type(ESV_ZEL_ACC_TYPE_C_READ_TYPE type);
    unsigned long esv_zel_acc_set_felica_info(ESV_ZEL_ACC_FELICA_SETTING_SITE site,
                                              ESV_ZEL_ACC_FELICA_SETTING_INFO& info);
    unsigned long esv_zel_acc_get_felica_info(ESV_ZEL_ACC_FELICA_SETTING_SITE site,
                                              ESV_ZEL_ACC_FELICA_SETTING_INFO& info);

private:
    esv_zel_acc_facade() {}
};

}  // namespace tarnwick

#endif
