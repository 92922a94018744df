// JNI side of tarnwick.sim.SimEvents: raises the device's notifications from the facades' own
// threads and makes attaching a thread to the VM fail on demand.
#include <jni.h>

#include <atomic>
#include <cstring>
#include <string>
#include <vector>

#include "tovr_sim.h"
#include "tovr_sim_events.h"
#include "tovr_sim_job.h"
#include "sim_jni.h"

namespace {

using tovr_sim_jni::strings;
using tovr_sim_jni::text;

jlongArray answers(JNIEnv* env, const tovr_sim::Answers& a) {
    jlongArray out = env->NewLongArray(static_cast<jsize>(a.size()));
    if (out == nullptr) return nullptr;
    std::vector<jlong> values;
    // Observer answers are 32-bit codes on the device.
    for (unsigned long v : a) values.push_back(static_cast<jlong>(static_cast<std::uint32_t>(v)));
    if (!values.empty()) env->SetLongArrayRegion(out, 0, static_cast<jsize>(values.size()), values.data());
    return out;
}


// ----- attach failures -----
//
// The VM's invocation table is replaced, once, by a copy whose AttachCurrentThread can refuse;
// everything else goes to the VM's own functions. The library finds the VM as usual and sees
// the refusal exactly as from a VM that cannot attach the thread.
std::atomic<int> g_attach_failures{0};  // < 0: every attach fails
std::atomic<int> g_attach_refused{0};
const JNIInvokeInterface_* g_real_invoke = nullptr;
JNIInvokeInterface_ g_invoke;

jint JNICALL refusing_attach(JavaVM* vm, void** penv, void* args) {
    int n = g_attach_failures.load();
    while (n != 0) {
        if (n < 0 || g_attach_failures.compare_exchange_weak(n, n - 1)) {
            ++g_attach_refused;
            return JNI_ERR;
        }
    }
    return g_real_invoke->AttachCurrentThread(vm, penv, args);
}

void install_refusing_attach(JNIEnv* env) {
    JavaVM* vm = nullptr;
    if (env->GetJavaVM(&vm) != JNI_OK || vm == nullptr) return;
    if (vm->functions == &g_invoke) return;
    g_real_invoke = vm->functions;
    g_invoke = *g_real_invoke;
    g_invoke.AttachCurrentThread = refusing_attach;
    vm->functions = &g_invoke;
}

using tarnwick::esv_zel_acc_observer;
using tarnwick::esv_zel_common_observer;
using tarnwick::esv_zel_panel_observer;

template <typename Fn>
jlongArray common(JNIEnv* env, Fn fn) {
    return answers(env, tovr_sim::common_facade().raise([fn](esv_zel_common_observer* o) -> unsigned long { return fn(o); }));
}

}  // namespace

extern "C" {

// ----- attach -----

JNIEXPORT void JNICALL Java_tarnwick_sim_SimEvents_failAttach(JNIEnv* env, jclass, jint times) {
    install_refusing_attach(env);
    g_attach_failures = times;
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimEvents_refusedAttaches(JNIEnv*, jclass) {
    return g_attach_refused.load();
}

// ----- registered observers -----

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimEvents_observerCount(JNIEnv* env, jclass, jstring facade) {
    const std::string f = text(env, facade);
    if (f == "common") return static_cast<jint>(tovr_sim::common_facade().observers().size());
    if (f == "panel") return static_cast<jint>(tovr_sim::panel_facade().observers().size());
    if (f == "acc") return static_cast<jint>(tovr_sim::acc_facade().observers().size());
    if (f == "job") return static_cast<jint>(tovr_sim::job_observer_count());
    if (f == "jobinfo") return static_cast<jint>(tovr_sim::jobinfo_observer_count());
    return -1;
}

// ----- common facade -----

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_keyCardStatus(JNIEnv* env, jclass, jint status) {
    return common(env, [=](esv_zel_common_observer* o) { return o->notify_key_card_status(static_cast<unsigned char>(status)); });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_keyCounterStatus(JNIEnv* env, jclass, jlong status) {
    return common(env, [=](esv_zel_common_observer* o) { return o->notify_key_counter_status(static_cast<unsigned int>(status)); });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_residentAppStateChanged(JNIEnv* env, jclass, jint state) {
    return common(env, [=](esv_zel_common_observer* o) {
        return o->notify_resident_app_state_changed(static_cast<ESV_ZEL_REQ_APP_STATE>(state));
    });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_wasteTonerBottleStatus(JNIEnv* env, jclass, jint status) {
    return common(env, [=](esv_zel_common_observer* o) {
        return o->notify_waste_toner_bottle_status(static_cast<unsigned char>(status));
    });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_coverStatus(JNIEnv* env, jclass, jlong status) {
    return common(env, [=](esv_zel_common_observer* o) { return o->notify_cover_status(static_cast<unsigned int>(status)); });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_paperRestStatus(JNIEnv* env, jclass, jint source, jint level) {
    return common(env, [=](esv_zel_common_observer* o) {
        return o->notify_paper_rest_status(static_cast<unsigned short>(source), static_cast<unsigned char>(level));
    });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_tonerStatus(JNIEnv* env, jclass, jint first, jint second) {
    return common(env, [=](esv_zel_common_observer* o) {
        return o->notify_toner_status(static_cast<unsigned char>(first), static_cast<unsigned char>(second));
    });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_coinVenderStatus(JNIEnv* env, jclass, jlong status) {
    return common(env, [=](esv_zel_common_observer* o) { return o->notify_coin_vender_status(static_cast<unsigned int>(status)); });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_usbMemoryStatus(JNIEnv* env, jclass, jlong status) {
    return common(env, [=](esv_zel_common_observer* o) { return o->notify_usb_memory_status(static_cast<unsigned int>(status)); });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_sleep(JNIEnv* env, jclass, jint state) {
    return common(env, [=](esv_zel_common_observer* o) { return o->notify_sleep(static_cast<ESV_ZEL_EVENT_SLEEP_STATE>(state)); });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_pbpConnectionError(JNIEnv* env, jclass, jint error) {
    return common(env, [=](esv_zel_common_observer* o) {
        return o->notify_pbp_connection_error(static_cast<ESV_ZEL_EVENT_CONNECTION_ERROR>(error));
    });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_logout(JNIEnv* env, jclass, jlong reason) {
    return common(env, [=](esv_zel_common_observer* o) {
        return o->notify_logout(static_cast<unsigned long>(static_cast<std::uint32_t>(reason)));
    });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_networkStateChanged(JNIEnv* env, jclass, jint type) {
    return common(env, [=](esv_zel_common_observer* o) { return o->network_state_changed(static_cast<ESV_ZEL_NETWORK_TYPE>(type)); });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_serviceStateChanged(JNIEnv* env, jclass, jint type) {
    return common(env, [=](esv_zel_common_observer* o) { return o->service_state_changed(static_cast<ESV_ZEL_ACCEPTANCE_TYPE>(type)); });
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_requestActivate(JNIEnv* env, jclass, jint scenario, jlong value) {
    return common(env, [=](esv_zel_common_observer* o) {
        return o->request_activate(static_cast<ESV_ZEL_KIND_OF_SCENARIO>(scenario), static_cast<unsigned int>(value));
    });
}

// ----- panel facade -----

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_keyEvent(JNIEnv* env, jclass, jlong id, jint event) {
    return answers(env, tovr_sim::panel_facade().raise([=](esv_zel_panel_observer* o) {
        return o->notify_key_event(static_cast<unsigned int>(id), static_cast<ESV_ZEL_PANEL_KEY_EVENT>(event));
    }));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_autoPanelReset(JNIEnv* env, jclass) {
    return answers(env, tovr_sim::panel_facade().raise([](esv_zel_panel_observer* o) { return o->notify_auto_panel_reset(); }));
}

// ----- access-control facade -----

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimEvents_writeCardData(JNIEnv* env, jclass, jlong block_id, jint offset,
                                                                     jbyteArray bytes) {
    std::vector<unsigned char> data(static_cast<std::size_t>(env->GetArrayLength(bytes)));
    if (!data.empty()) {
        env->GetByteArrayRegion(bytes, 0, static_cast<jsize>(data.size()), reinterpret_cast<jbyte*>(data.data()));
    }
    return tovr_sim::acc_write_card_data(static_cast<unsigned long>(block_id), static_cast<std::size_t>(offset), data)
               ? JNI_TRUE
               : JNI_FALSE;
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_iccardDetect(JNIEnv* env, jclass, jstring card_id, jlong card_type,
                                                                      jint card_data_size, jint blkid) {
    ESV_ZEL_ACC_ICCARD_INFO info;
    std::memset(&info, 0, sizeof info);
    const std::string id = text(env, card_id);
    std::strncpy(info.card_id, id.c_str(), sizeof info.card_id - 1);
    info.card_type = static_cast<uint32_t>(card_type);
    info.card_data_size = static_cast<uint16_t>(card_data_size);
    info.blkid = blkid;
    return answers(env, tovr_sim::acc_facade().raise([info](esv_zel_acc_observer* o) mutable {
        return static_cast<unsigned long>(static_cast<std::uint32_t>(o->notify_iccard_detect(info)));
    }));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_iccardReadError(JNIEnv* env, jclass, jint code) {
    return answers(env, tovr_sim::acc_facade().raise([=](esv_zel_acc_observer* o) {
        return static_cast<unsigned long>(static_cast<std::uint32_t>(o->notify_iccard_read_error(code)));
    }));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_iccardStateChange(JNIEnv* env, jclass, jint product_id,
                                                                           jint vendor_id, jint card_types, jint state) {
    ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO info;
    std::memset(&info, 0, sizeof info);
    info.product_id = static_cast<uint16_t>(product_id);
    info.vendor_id = static_cast<uint16_t>(vendor_id);
    info.card_types = static_cast<uint8_t>(card_types);
    info.state = state;
    return answers(env, tovr_sim::acc_facade().raise([info](esv_zel_acc_observer* o) mutable {
        return static_cast<unsigned long>(static_cast<std::uint32_t>(o->notify_iccard_state_change_info(info)));
    }));
}

// ----- job facade -----

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_jobStateChanged(JNIEnv* env, jclass, jint state, jlong user_job_id,
                                                                         jint result, jint job_mode, jstring user_name,
                                                                         jint in_dev, jint out_dev) {
    ESV_ZEL_JOB_STATE s;
    std::memset(&s, 0, sizeof s);
    s.state = state;
    s.user_job_id = static_cast<uint32_t>(user_job_id);
    s.result = result;
    s.job_mode = static_cast<uint16_t>(job_mode);
    const std::string name = text(env, user_name);
    std::strncpy(s.user_name, name.c_str(), sizeof s.user_name - 1);
    s.in_dev = static_cast<uint8_t>(in_dev);
    s.out_dev = static_cast<uint8_t>(out_dev);
    return answers(env, tovr_sim::raise_job_state_changed(s));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_scanCount(JNIEnv* env, jclass, jlong a, jlong b) {
    return answers(env, tovr_sim::raise_scan_count(static_cast<unsigned int>(a), static_cast<unsigned int>(b)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_startPhb(JNIEnv* env, jclass, jlong id) {
    return answers(env, tovr_sim::raise_start_phb(static_cast<unsigned int>(id)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_disableInfo(JNIEnv* env, jclass, jlong id) {
    return answers(env, tovr_sim::raise_disable_info(static_cast<unsigned int>(id)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_mainMessage(JNIEnv* env, jclass, jlong id) {
    return answers(env, tovr_sim::raise_main_message(static_cast<unsigned int>(id)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_phbInfo(JNIEnv* env, jclass, jlong id) {
    ESV_ZEL_PHB_INFO info;
    std::memset(&info, 0, sizeof info);
    return answers(env, tovr_sim::raise_phb_info(static_cast<unsigned int>(id), info));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_messageInfo(JNIEnv* env, jclass, jlong id) {
    ESV_ZEL_PHB_GET_MESSAGE message;
    std::memset(&message, 0, sizeof message);
    return answers(env, tovr_sim::raise_message_info(static_cast<unsigned int>(id), message));
}

// ----- job-information facade -----

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_jobUpdateLog(JNIEnv* env, jclass, jlong user_job_id, jlong receipt_id) {
    ESV_ZEL_EVENT_JOB_UPDATE_LOG log{static_cast<uint32_t>(user_job_id), static_cast<uint32_t>(receipt_id)};
    return answers(env, tovr_sim::raise_job_update_log(log));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_faxSendPage(JNIEnv* env, jclass, jlong user_job_id, jlong page_num) {
    ESV_ZEL_EVENT_SEND_PAGE page{static_cast<uint32_t>(user_job_id), static_cast<uint32_t>(page_num)};
    return answers(env, tovr_sim::raise_fax_send_page_info(page));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_renintStart(JNIEnv* env, jclass, jlong user_job_id, jint name_setting,
                                                                     jlong interface_info, jstring job_name) {
    ESV_ZEL_EVENT_RENINT_START start;
    std::memset(&start, 0, sizeof start);
    start.user_job_id = static_cast<uint32_t>(user_job_id);
    start.name_setting = static_cast<uint8_t>(name_setting);
    start.interface_info = static_cast<uint32_t>(interface_info);
    // A null name reaches the observer as a null pointer.
    if (job_name == nullptr) return answers(env, tovr_sim::raise_renint_start_info(start, nullptr));
    const std::string name = text(env, job_name);
    return answers(env, tovr_sim::raise_renint_start_info(start, name.c_str()));
}

// fields: user job id, page number, output dev, input dev, custom x, custom y, paper size, type,
// direction, weight, duplex, staple, punch, colour mode
JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_printPage(JNIEnv* env, jclass, jlongArray fields) {
    jlong f[14] = {};
    env->GetLongArrayRegion(fields, 0, 14, f);
    if (env->ExceptionCheck()) return nullptr;
    ESV_ZEL_EVENT_PRINT_PAGE p;
    std::memset(&p, 0, sizeof p);
    p.user_job_id = static_cast<uint32_t>(f[0]);
    p.page_num = static_cast<uint32_t>(f[1]);
    p.output_dev = static_cast<int>(f[2]);
    p.input_dev = static_cast<int>(f[3]);
    p.custom_x = static_cast<uint16_t>(f[4]);
    p.custom_y = static_cast<uint16_t>(f[5]);
    p.paper_size = static_cast<int>(f[6]);
    p.paper_type = static_cast<int>(f[7]);
    p.paper_dir = static_cast<int>(f[8]);
    p.paper_weight = static_cast<int>(f[9]);
    p.duplex = static_cast<int>(f[10]);
    p.staple = static_cast<int>(f[11]);
    p.punch = static_cast<int>(f[12]);
    p.color_mode = static_cast<int>(f[13]);
    return answers(env, tovr_sim::raise_print_page_info(p));
}

// fields: user job id, page number, custom x, custom y, paper size, direction, duplex, colour
// mode, resolution
JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimEvents_scanPage(JNIEnv* env, jclass, jlongArray fields) {
    jlong f[9] = {};
    env->GetLongArrayRegion(fields, 0, 9, f);
    if (env->ExceptionCheck()) return nullptr;
    ESV_ZEL_EVENT_SCAN_PAGE p;
    std::memset(&p, 0, sizeof p);
    p.user_job_id = static_cast<uint32_t>(f[0]);
    p.page_num = static_cast<uint32_t>(f[1]);
    p.custom_x = static_cast<uint16_t>(f[2]);
    p.custom_y = static_cast<uint16_t>(f[3]);
    p.paper_size = static_cast<int>(f[4]);
    p.paper_dir = static_cast<int>(f[5]);
    p.duplex = static_cast<int>(f[6]);
    p.color_mode = static_cast<int>(f[7]);
    p.resolution = static_cast<int>(f[8]);
    return answers(env, tovr_sim::raise_scan_page_info(p));
}

}  // extern "C"
