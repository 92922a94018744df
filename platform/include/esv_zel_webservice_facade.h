// Web service facade: reservation of a device web service for one client host.
#ifndef ESV_ZEL_WEBSERVICE_FACADE_H
#define ESV_ZEL_WEBSERVICE_FACADE_H

#include <string>

// The device's web services. The values belong to the platform and pass through unchanged.
enum ESV_ZEL_WEBSERVICE_KIND : int {
    ESV_ZEL_WEBSERVICE_KIND_SCAN = 0,
    ESV_ZEL_WEBSERVICE_KIND_PRINT = 1,
    ESV_ZEL_WEBSERVICE_KIND_DEVICE = 2
};

#define ESV_ZEL_WEBSERVICE_OK 0
#define ESV_ZEL_WEBSERVICE_ERROR_PARAMETER 0x04010601
#define ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE 0x04010602
#define ESV_ZEL_WEBSERVICE_ERROR_ALREADY_RESERVED 0x04010603
#define ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST 0x04010604
#define ESV_ZEL_WEBSERVICE_ERROR_FAILED 0x04010605
#define ESV_ZEL_WEBSERVICE_ERROR_IPC 0x04010606

namespace tarnwick {

// Process-wide singleton of the web service reservation.
class esv_zel_webservice_facade {
public:
    static esv_zel_webservice_facade* esv_zel_webservice_get_instance();

    long esv_zel_webservice_reserve(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name);
    long esv_zel_webservice_release(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name);

private:
    esv_zel_webservice_facade() {}
};

}  // namespace tarnwick

#endif
