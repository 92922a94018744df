// char* arguments of the generated wrapper functions, called by their C names in a stand-in VM:
// the characters taken from the Java string are released on every path out of the wrapper,
// also when a later argument is refused or the native operation throws.
#include <gtest/gtest.h>
#include <jni.h>

#include <string>
#include <vector>

#include "sim_fixture.h"
#include "stand_in_vm.h"
#include "tovr_sim_sample.h"

#define USERW(name) Java_tarnwick_zel_wrapper_user_ZELFNDUserJNI_##name
#define BOXW(name) Java_tarnwick_zel_wrapper_box_zel_1fnd_1document_1box_1moduleJNI_##name

extern "C" {
jlong USERW(new_1zel_1fnd_1authentication)(JNIEnv*, jclass);
void USERW(delete_1zel_1fnd_1authentication)(JNIEnv*, jclass, jlong);
jlong USERW(new_1ZEL_1FND_1CERTIFICATE_1ID)(JNIEnv*, jclass);
void USERW(delete_1ZEL_1FND_1CERTIFICATE_1ID)(JNIEnv*, jclass, jlong);
jlong USERW(ZEL_1FND_1CERTIFICATE_1ID_1id_1get)(JNIEnv*, jclass, jlong, jobject);
jint USERW(zel_1fnd_1authentication_1iccard_1login)(JNIEnv*, jclass, jlong, jobject, jstring, jlong, jobject);

jlong BOXW(new_1zel_1fnd_1removable_1memory_1file_1info)(JNIEnv*, jclass);
void BOXW(delete_1zel_1fnd_1removable_1memory_1file_1info)(JNIEnv*, jclass, jlong);
void BOXW(zel_1fnd_1removable_1memory_1file_1info_1set_1field_1name)(JNIEnv*, jclass, jlong, jobject, jobject, jstring);
}

namespace {

const char* const kIdm = tovr_sim::kSampleCard;  // alice's

class CharArgument : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        SimDeviceTest::SetUp();
        tovr_sim::load_sample_device();
        env = vm.env();
        auth = USERW(new_1zel_1fnd_1authentication)(env, nullptr);
    }
    void TearDown() override {
        USERW(delete_1zel_1fnd_1authentication)(env, nullptr, auth);
        SimDeviceTest::TearDown();
    }
    stand_in::Vm vm{{"tarnwick/zel/box/document/RemovableMemoryFileInfoImpl"}};
    JNIEnv* env = nullptr;
    jlong auth = 0;
};

}  // namespace

TEST_F(CharArgument, IdmReleasedWhenTheCertificateIsRefused) {
    jint result = USERW(zel_1fnd_1authentication_1iccard_1login)(env, nullptr, auth, nullptr, vm.string(kIdm), 0, nullptr);
    EXPECT_EQ(0, result);
    EXPECT_EQ((std::vector<std::string>{"java/lang/NullPointerException: tarnwick::ZEL_FND_CERTIFICATE_ID & reference is null"}),
              vm.thrown);
    EXPECT_EQ(1, vm.utf_taken);
    EXPECT_EQ(1, vm.utf_released);
    EXPECT_TRUE(tovr_sim::calls("esv_zel_user_idm_login").empty());
}

TEST_F(CharArgument, IdmReleasedAfterTheLogin) {
    jlong cert = USERW(new_1ZEL_1FND_1CERTIFICATE_1ID)(env, nullptr);
    EXPECT_EQ(0, USERW(zel_1fnd_1authentication_1iccard_1login)(env, nullptr, auth, nullptr, vm.string(kIdm), cert, nullptr));
    EXPECT_NE(0, USERW(ZEL_1FND_1CERTIFICATE_1ID_1id_1get)(env, nullptr, cert, nullptr));
    EXPECT_EQ(1, vm.utf_taken);
    EXPECT_EQ(1, vm.utf_released);
    // A null string is a null pointer (which the device refuses): nothing taken, nothing
    // released, no exception.
    EXPECT_EQ(4, USERW(zel_1fnd_1authentication_1iccard_1login)(env, nullptr, auth, nullptr, nullptr, cert, nullptr));
    EXPECT_EQ(1, vm.utf_taken);
    EXPECT_EQ(1, vm.utf_released);
    EXPECT_TRUE(vm.thrown.empty());
    USERW(delete_1ZEL_1FND_1CERTIFICATE_1ID)(env, nullptr, cert);
}

TEST_F(CharArgument, CharactersTheVmCannotGiveStopTheCall) {
    jlong cert = USERW(new_1ZEL_1FND_1CERTIFICATE_1ID)(env, nullptr);
    vm.fail_utf = true;
    EXPECT_EQ(0, USERW(zel_1fnd_1authentication_1iccard_1login)(env, nullptr, auth, nullptr, vm.string(kIdm), cert, nullptr));
    EXPECT_TRUE(vm.pending);  // the VM's own OutOfMemoryError
    EXPECT_EQ(0, vm.utf_released);
    EXPECT_TRUE(tovr_sim::calls("esv_zel_user_idm_login").empty());
    USERW(delete_1ZEL_1FND_1CERTIFICATE_1ID)(env, nullptr, cert);
}

// The native operation throws (no memory for the name's Java string): the wrapper turns it into
// OutOfMemoryError and still releases the name's characters.
TEST_F(CharArgument, NameReleasedWhenTheBoxSetterThrows) {
    jlong builder = BOXW(new_1zel_1fnd_1removable_1memory_1file_1info)(env, nullptr);
    jobject info = vm.object("tarnwick/zel/box/document/RemovableMemoryFileInfoImpl");
    vm.bad_alloc_strings = 1;
    BOXW(zel_1fnd_1removable_1memory_1file_1info_1set_1field_1name)(env, nullptr, builder, nullptr, info, vm.string("a.pdf"));
    EXPECT_EQ((std::vector<std::string>{"java/lang/OutOfMemoryError: native memory allocation failed"}), vm.thrown);
    EXPECT_EQ(1, vm.utf_taken);
    EXPECT_EQ(1, vm.utf_released);
    EXPECT_EQ(0u, stand_in::O(info)->refs.count("name"));
    BOXW(delete_1zel_1fnd_1removable_1memory_1file_1info)(env, nullptr, builder);
}
