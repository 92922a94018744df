// Java applications' view of the IC card reader: presence, identity and supported card types,
// and how cards are read: the read type and, for FeliCa (TypeC) cards, the setting of each of
// the two setting sites, staged class-wide between the Java setters and the facade.
#ifndef TARNWICK_CMT_DEVICE_ICCARD_H
#define TARNWICK_CMT_DEVICE_ICCARD_H

#include <cstdint>
#include <mutex>
#include <string>

namespace tarnwick {

class CMT_Device_ICCard {
public:
    static const int READER_UNKNOWN = -1;
    static const int READER_NOT_EXIST = 0;
    static const int READER_EXIST = 1;
    static const int SETTING_SITE_1 = 1;
    static const int SETTING_SITE_2 = 2;
    static const int READ_IDM = 1;
    static const int READ_FELICA = 2;

    // Every new object stages the initial FeliCa setting again (discarding what was staged).
    CMT_Device_ICCard();
    virtual ~CMT_Device_ICCard();

    bool getReaderInfo();
    int getVendorID();
    int getProductID();
    int getCardTypes();
    int getReaderStatus();
    bool setReaderType(char card_device_type);
    bool setTypeCReadType(int type);
    void setSystemCode(std::string code);
    // index 0 or 1; any other index stages nothing.
    void setServiceCode(std::string code, int blockNum, int index);
    bool setTypeCInfo(int site);
    bool getTypeCInfo(int site);
    // Each re-reads the site's setting from the reader first. The two string getters throw
    // std::logic_error when that read fails (or the index is not 0 or 1).
    std::string getTypeCSystemCode(int site);
    std::string getTypeCServiceCode(int site, int index);
    int getTypeCBlockNum(int site, int index);

private:
    std::int32_t vendorID;
    std::int32_t productID;
    std::int32_t cardTypes;

    // The staged FeliCa setting, shared by all objects and all Java threads.
    static int settingSite;
    static std::string systemCode;
    static std::string serviceCode[2];
    static std::int32_t blockNum[2];
    // Guards the staged members; see the .cpp for why it is the one lock of this class.
    static std::mutex stagingMutex;
};

}  // namespace tarnwick

#endif
