// Events per second through the observers, each against the floor measured in the same run on
// the same VM: a bare attach, one static call, detach, with the same number of threads.
//
// The observers are called directly from the benchmark threads, which stand for the device's
// notification threads. Classes come from tovrCMT.jar (TOVR_CLASSPATH, or ../java/tovrCMT.jar
// next to this program).
#include <benchmark/benchmark.h>
#include <jni.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "zel_fnd_common_observer.h"
#include "zel_fnd_job_observer.h"
#include "zel_fnd_jobinfo_observer.h"
#include "zel_fnd_panel_observer.h"

namespace {

JavaVM* g_vm = nullptr;
jclass g_job_proxy = nullptr;
jmethodID g_fire_scan_count = nullptr;
tarnwick::zel_fnd_job_observer* g_job = nullptr;
tarnwick::zel_fnd_jobinfo_observer* g_jobinfo = nullptr;
tarnwick::zel_fnd_common_observer* g_common = nullptr;
tarnwick::zel_fnd_panel_observer* g_panel = nullptr;

std::string class_path() {
    if (const char* cp = std::getenv("TOVR_CLASSPATH")) return cp;
    char exe[4096] = {};
    ssize_t n = readlink("/proc/self/exe", exe, sizeof exe - 1);
    std::string dir = n > 0 ? std::string(exe, static_cast<std::size_t>(n)) : std::string("./x");
    dir = dir.substr(0, dir.rfind('/'));
    return dir + "/../java/tovrCMT.jar";
}

bool start_vm() {
    std::string option = "-Djava.class.path=" + class_path();
    JavaVMOption options[1];
    options[0].optionString = const_cast<char*>(option.c_str());
    JavaVMInitArgs args;
    std::memset(&args, 0, sizeof args);
    args.version = JNI_VERSION_1_8;
    args.nOptions = 1;
    args.options = options;
    JNIEnv* env = nullptr;
    if (JNI_CreateJavaVM(&g_vm, reinterpret_cast<void**>(&env), &args) != JNI_OK) return false;
    jclass local = env->FindClass("tarnwick/zel/controller/event/proxy/JobProxy");
    if (local == nullptr) return false;
    g_job_proxy = static_cast<jclass>(env->NewGlobalRef(local));
    g_fire_scan_count = env->GetStaticMethodID(g_job_proxy, "fireScanCountEvent", "(JJ)V");
    if (g_fire_scan_count == nullptr) return false;
    // Each observer's init() finds its classes on this thread and detaches it at the end.
    g_job = new tarnwick::zel_fnd_job_observer;
    g_job->init();
    g_jobinfo = new tarnwick::zel_fnd_jobinfo_observer;
    g_jobinfo->init();
    g_common = new tarnwick::zel_fnd_common_observer;
    g_common->init();
    g_panel = new tarnwick::zel_fnd_panel_observer;
    g_panel->init();
    return true;
}

// Starts the VM once, on the first benchmark's thread.
void ensure_vm() {
    static const bool ready = start_vm();
    if (!ready) {
        std::fprintf(stderr, "cannot start the Java VM with %s\n", class_path().c_str());
        std::exit(1);
    }
}

// The floor: what any notification costs at least.
void floor_once(jlong value) {
    JNIEnv* env = nullptr;
    if (g_vm->AttachCurrentThread(reinterpret_cast<void**>(&env), nullptr) != JNI_OK) std::abort();
    env->CallStaticVoidMethod(g_job_proxy, g_fire_scan_count, value, value);
    if (env->ExceptionCheck()) std::abort();
    g_vm->DetachCurrentThread();
}

void BM_Floor(benchmark::State& state) {
    ensure_vm();
    jlong i = 0;
    for (auto _ : state) floor_once(++i);
    state.SetItemsProcessed(state.iterations());
}

void BM_JobScanCount(benchmark::State& state) {
    ensure_vm();
    unsigned int i = 0;
    for (auto _ : state) {
        ++i;
        if (g_job->notify_scan_count(i, i) != 0) state.SkipWithError("notify_scan_count failed");
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_JobStateChanged(benchmark::State& state) {
    ensure_vm();
    ESV_ZEL_JOB_STATE s;
    std::memset(&s, 0, sizeof s);
    s.state = 1;
    s.result = 0;
    std::strcpy(s.user_name, "bench");
    for (auto _ : state) {
        ++s.user_job_id;
        if (g_job->notify_job_state_changed(s) != 0) state.SkipWithError("notify_job_state_changed failed");
    }
    state.SetItemsProcessed(state.iterations());
}

// Four observers, four facades, a thread each.
void BM_FourObservers(benchmark::State& state) {
    ensure_vm();
    unsigned int i = 0;
    const int which = state.thread_index() % 4;
    for (auto _ : state) {
        ++i;
        unsigned long rc = 0;
        switch (which) {
        case 0:
            rc = static_cast<unsigned long>(g_job->notify_scan_count(i, i));
            break;
        case 1: {
            ESV_ZEL_EVENT_SEND_PAGE page{i, i};
            rc = static_cast<unsigned long>(g_jobinfo->notify_fax_send_page_info(page));
            break;
        }
        case 2:
            rc = g_common->notify_cover_status(i);
            break;
        default:
            rc = g_panel->notify_key_event(i, ESV_ZEL_PANEL_KEY_EVENT_PRESS);
            break;
        }
        if (rc != 0) state.SkipWithError("notification failed");
    }
    state.SetItemsProcessed(state.iterations());
}

}  // namespace

BENCHMARK(BM_Floor)->UseRealTime();
BENCHMARK(BM_JobScanCount)->UseRealTime();
BENCHMARK(BM_JobStateChanged)->UseRealTime();
BENCHMARK(BM_Floor)->Threads(4)->UseRealTime();
BENCHMARK(BM_FourObservers)->Threads(4)->UseRealTime();

BENCHMARK_MAIN();
