#include "cmt_device_iccard.h"

#include <cstring>
#include <stdexcept>

#include "cmt_trace.h"
#include "esv_zel_acc_facade.h"

#define CMT_TRACE_MODULE "cmt_device_iccard"

namespace tarnwick {

const int CMT_Device_ICCard::READER_UNKNOWN;
const int CMT_Device_ICCard::READER_NOT_EXIST;
const int CMT_Device_ICCard::READER_EXIST;
const int CMT_Device_ICCard::SETTING_SITE_1;
const int CMT_Device_ICCard::SETTING_SITE_2;
const int CMT_Device_ICCard::READ_IDM;
const int CMT_Device_ICCard::READ_FELICA;

// The staged FeliCa setting is written and read by several Java threads at once. A string
// copied while another thread assigns it would be torn (or freed under the reader), so every
// copy into or out of the staging members happens under this short lock. It is never held
// across a facade call: the reader may take its time, and nothing else waits on it.
std::mutex CMT_Device_ICCard::stagingMutex;
int CMT_Device_ICCard::settingSite = 0;
std::string CMT_Device_ICCard::systemCode = "0";
std::string CMT_Device_ICCard::serviceCode[2] = {"0", "0"};
std::int32_t CMT_Device_ICCard::blockNum[2] = {0x01010101, 0x01010101};

namespace {

esv_zel_acc_facade* acc() { return esv_zel_acc_facade::esv_zel_acc_get_instance(); }

// Sites 1 and 2 pass; anything else names no site.
ESV_ZEL_ACC_FELICA_SETTING_SITE map_site(int site) {
    return (site == 1 || site == 2) ? static_cast<ESV_ZEL_ACC_FELICA_SETTING_SITE>(site)
                                    : static_cast<ESV_ZEL_ACC_FELICA_SETTING_SITE>(0);
}

bool valid_index(int index) { return index == 0 || index == 1; }

// What a string built from no text raises: the string getters have no value to give when the
// setting could not be read.
[[noreturn]] void no_text() { throw std::logic_error("basic_string: construction from null is not valid"); }

}  // namespace

CMT_Device_ICCard::CMT_Device_ICCard() : vendorID(0), productID(0), cardTypes(0) {
    std::lock_guard<std::mutex> lock(stagingMutex);
    settingSite = 0;
    systemCode = "0";
    serviceCode[0] = "0";
    serviceCode[1] = "0";
    // Filled bytewise with 1: 0x01010101 each; only the low byte (1) ever reaches the reader.
    std::memset(blockNum, 1, sizeof blockNum);
}

CMT_Device_ICCard::~CMT_Device_ICCard() {}

bool CMT_Device_ICCard::getReaderInfo() {
    ESV_ZEL_ACC_ICCARD_DEVICE_INFO info;
    std::memset(&info, 0, sizeof info);
    if (acc()->esv_zel_acc_get_iccard_device_info(info) != 0) return false;
    productID = info.product_id;
    vendorID = info.vendor_id;
    cardTypes = info.card_types;
    return true;
}

int CMT_Device_ICCard::getVendorID() { return getReaderInfo() ? vendorID : -1; }

int CMT_Device_ICCard::getProductID() { return getReaderInfo() ? productID : -1; }

int CMT_Device_ICCard::getCardTypes() { return getReaderInfo() ? cardTypes : -1; }

int CMT_Device_ICCard::getReaderStatus() {
    unsigned int status = 0;
    if (acc()->esv_zel_acc_get_rw_status(status) != 0) return READER_UNKNOWN;
    if (status == 0) return READER_NOT_EXIST;
    if (status == 1) return READER_EXIST;
    return READER_UNKNOWN;
}

// char is signed on this interface, whatever the compiler's plain char: 200 from Java is the
// byte 0xC8 and traces as -56 on the host and on the device alike.
bool CMT_Device_ICCard::setReaderType(char card_device_type) {
    const signed char type = static_cast<signed char>(card_device_type);
    CMT_TRACE(kTraceFlow, "[Enter] card_device_type = %d", static_cast<int>(type));
    if (acc()->esv_zel_acc_set_iccard_read_type(static_cast<unsigned char>(type)) == 0) {
        CMT_TRACE(kTraceFlow, "true!!");
        return true;
    }
    CMT_TRACE(kTraceError, "false!!");
    return false;
}

bool CMT_Device_ICCard::setTypeCReadType(int type) {
    const ESV_ZEL_ACC_TYPE_C_READ_TYPE read_type =
        (type == READ_IDM || type == READ_FELICA) ? static_cast<ESV_ZEL_ACC_TYPE_C_READ_TYPE>(type)
                                                  : static_cast<ESV_ZEL_ACC_TYPE_C_READ_TYPE>(0);
    if (acc()->esv_zel_acc_set_felica_read_type(read_type) == 0) {
        CMT_TRACE(kTraceFlow, "true!!");
        return true;
    }
    CMT_TRACE(kTraceError, "CMT_Device_ICCard::setTypeCReadType false!!");
    return false;
}

void CMT_Device_ICCard::setSystemCode(std::string code) {
    std::lock_guard<std::mutex> lock(stagingMutex);
    systemCode = code;
}

void CMT_Device_ICCard::setServiceCode(std::string code, int block, int index) {
    if (!valid_index(index)) return;  // two slots only: nothing outside them is written
    std::lock_guard<std::mutex> lock(stagingMutex);
    serviceCode[index] = code;
    blockNum[index] = block;
}

bool CMT_Device_ICCard::setTypeCInfo(int site) {
    const ESV_ZEL_ACC_FELICA_SETTING_SITE mapped = map_site(site);
    ESV_ZEL_ACC_FELICA_SETTING_INFO info;
    {
        std::lock_guard<std::mutex> lock(stagingMutex);
        settingSite = mapped;
        info.system_code = systemCode;
        info.service_code_1 = serviceCode[0];
        info.service_code_2 = serviceCode[1];
        info.blk_num_1 = static_cast<unsigned char>(blockNum[0] & 0xFF);
        info.blk_num_2 = static_cast<unsigned char>(blockNum[1] & 0xFF);
    }
    return acc()->esv_zel_acc_set_felica_info(mapped, info) == 0;
}

bool CMT_Device_ICCard::getTypeCInfo(int site) {
    ESV_ZEL_ACC_FELICA_SETTING_INFO info;
    info.blk_num_1 = 0;
    info.blk_num_2 = 0;
    if (acc()->esv_zel_acc_get_felica_info(map_site(site), info) != 0) return false;
    std::lock_guard<std::mutex> lock(stagingMutex);
    systemCode = info.system_code;
    serviceCode[0] = info.service_code_1;
    serviceCode[1] = info.service_code_2;
    blockNum[0] = info.blk_num_1;
    blockNum[1] = info.blk_num_2;
    return true;
}

std::string CMT_Device_ICCard::getTypeCSystemCode(int site) {
    if (!getTypeCInfo(site)) no_text();
    std::lock_guard<std::mutex> lock(stagingMutex);
    return systemCode;
}

std::string CMT_Device_ICCard::getTypeCServiceCode(int site, int index) {
    if (!getTypeCInfo(site) || !valid_index(index)) no_text();
    std::lock_guard<std::mutex> lock(stagingMutex);
    return serviceCode[index];
}

int CMT_Device_ICCard::getTypeCBlockNum(int site, int index) {
    if (!getTypeCInfo(site) || !valid_index(index)) return 0;
    std::lock_guard<std::mutex> lock(stagingMutex);
    return blockNum[index];
}

}  // namespace tarnwick
