// Java applications' view of the IC card reader: presence, identity and supported card types,
// and how cards are read: the read type and, for FeliCa (TypeC) cards, the setting of each of
// the two setting sites, staged class-wide between the Java setters and the facade.
#ifndef TARNWICK_CMT_DEVICE_ICCARD_H
#define TARNWICK_CMT_DEVICE_ICCARD_H

#include <cstdint>
#include <mutex>
#include <string>

namespace tarnwick {

/**
 * The IC card reader: whether one is connected, its identity and the card types it reads, and
 * how cards are read (the read type and, for FeliCa (TypeC) cards, the setting of each of the
 * two setting sites {@link #SETTING_SITE_1} and {@link #SETTING_SITE_2}). The FeliCa setters
 * stage a setting that {@code setTypeCInfo} sends; the staged setting is shared by every object
 * of the class. Failures show as false, -1 or 0, as each operation says.
 */
class CMT_Device_ICCard {
public:
    /** {@link #getReaderStatus()}: not known (no successful {@link #getReaderInfo()} yet). */
    static const int READER_UNKNOWN = -1;
    /** {@link #getReaderStatus()}: no reader is connected. */
    static const int READER_NOT_EXIST = 0;
    /** {@link #getReaderStatus()}: a reader is connected. */
    static const int READER_EXIST = 1;
    /** The first FeliCa setting site. */
    static const int SETTING_SITE_1 = 1;
    /** The second FeliCa setting site. */
    static const int SETTING_SITE_2 = 2;
    /** FeliCa read type: the card's IDm only. */
    static const int READ_IDM = 1;
    /** FeliCa read type: the IDm and the data of the staged services. */
    static const int READ_FELICA = 2;

    /** Every new object stages the initial FeliCa setting again (discarding what was staged). */
    CMT_Device_ICCard();
    virtual ~CMT_Device_ICCard();

    /** Reads the reader's identity, card types and presence; true when the device answered. */
    bool getReaderInfo();
    int getVendorID();
    int getProductID();
    int getCardTypes();
    int getReaderStatus();
    bool setReaderType(char card_device_type);
    bool setTypeCReadType(int type);
    void setSystemCode(std::string code);
    /** index 0 or 1; any other index stages nothing. */
    void setServiceCode(std::string code, int blockNum, int index);
    bool setTypeCInfo(int site);
    bool getTypeCInfo(int site);
    /**
     * Each re-reads the site's setting from the reader first. The two string getters throw
     * std::logic_error when that read fails (or the index is not 0 or 1).
     */
    std::string getTypeCSystemCode(int site);
    std::string getTypeCServiceCode(int site, int index);
    int getTypeCBlockNum(int site, int index);

private:
    std::int32_t vendorID;
    std::int32_t productID;
    std::int32_t cardTypes;

    /** The staged FeliCa setting, shared by all objects and all Java threads. */
    static int settingSite;
    static std::string systemCode;
    static std::string serviceCode[2];
    static std::int32_t blockNum[2];
    /** Guards the staged members; see the .cpp for why it is the one lock of this class. */
    static std::mutex stagingMutex;
};

}  // namespace tarnwick

#endif
