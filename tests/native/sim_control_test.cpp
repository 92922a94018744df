// The simulated device's control interface: one-line recording of facade calls, forced
// outputs together with a result code, the record of emwOSWOrgFreeMemPart, open-resource
// counts, and the job facades as observed facades.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "emw_osw_mem.h"
#include "esv_zel_job_facade.h"
#include "esv_zel_jobinfo_facade.h"
#include "sim_fixture.h"
#include "tovr_sim.h"
#include "tovr_sim_box.h"
#include "tovr_sim_job.h"

using tarnwick::esv_zel_job_facade;
using tarnwick::esv_zel_jobinfo_facade;

namespace {

// ---------------------------------------------------------------------------------------------
// Members of a facade of this test's own, recorded as simulated facades record theirs.

struct Rec {
    std::int32_t a;
    std::int32_t b;
    char name[8];
};

enum Colour : int { kRed = 1, kBlue = 7 };

long sample_member(unsigned int id, int delta, const char* path, std::string text, Colour colour) {
    TOVR_SIM_RECORD(long, id, delta, path, text, colour);
    return 42;
}

long sample_outputs(Rec& out, unsigned int& count, Rec& key) {
    TOVR_SIM_RECORD(long, tovr_sim::unrecorded(out), count, tovr_sim::shown(key, key.a, key.name));
    return 0;
}

unsigned long sample_no_arguments() {
    TOVR_SIM_RECORD(unsigned long);
    return 3;
}

int sample_renamed(int value) {
    TOVR_SIM_RECORD_AS("another_name", int, value);
    return 0;
}

long sample_record_argument(const Rec& in) {
    TOVR_SIM_RECORD(long, in);
    return 0;
}

// Every integer width, for the integer kinds of forced outputs.
long sample_numbers(signed char& s8, unsigned char& u8, short& s16, unsigned short& u16, int& s32, unsigned int& u32,
                    long long& s64, unsigned long long& u64, long& l, unsigned long& ul) {
    TOVR_SIM_RECORD(long, s8, u8, s16, u16, s32, u32, s64, u64, l, ul);
    return 0;
}

// A buffer of 16 characters that the device fills, as the member declares it.
long sample_buffer(char* buffer, unsigned int* count) {
    TOVR_SIM_RECORD(long, tovr_sim::sized(buffer, 16), count);
    return 0;
}

// A character buffer whose size the member does not declare.
long sample_unsized(char* buffer) {
    TOVR_SIM_RECORD(long, buffer);
    return 0;
}

// A record with std::string members, declared below (StringFields).
struct Named {
    std::string first;
    std::uint16_t count;
    std::string second;
};

}  // namespace

template <>
struct tovr_sim::StringFields<Named> {
    static const std::vector<std::size_t>* offsets() {
        static const std::vector<std::size_t> at = {offsetof(Named, first), offsetof(Named, second)};
        return &at;
    }
};

namespace {

long sample_named(Named& out, unsigned long* last) {
    TOVR_SIM_RECORD(long, tovr_sim::unrecorded(out), last);
    return 0;
}

long sample_overload(int a, unsigned long* last) {
    TOVR_SIM_RECORD_AS("sample_overload", long, a, last);
    return 0;
}

long sample_overload(int a, int b, unsigned long* last) {
    TOVR_SIM_RECORD_AS("sample_overload", long, a, b, last);
    return 0;
}

class SimControl : public sim_test::SimDeviceTest {};

// ---------------------------------------------------------------------------------------------
// Recording

TEST_F(SimControl, RecordsUnderTheMembersOwnNameWithNumbersInDecimalAndStringsAsTheyAre) {
    EXPECT_EQ(42, sample_member(4000000000u, -5, "/mnt/usb", "two words", kBlue));
    EXPECT_EQ(42, sample_member(0, 0, nullptr, "", kRed));
    auto calls = tovr_sim::calls("sample_member");
    ASSERT_EQ(2u, calls.size());
    EXPECT_EQ((std::vector<std::string>{"4000000000", "-5", "/mnt/usb", "two words", "7"}), calls[0].args);
    EXPECT_EQ((std::vector<std::string>{"0", "0", "null", "", "1"}), calls[1].args);
}

TEST_F(SimControl, UnrecordedArgumentsAreLeftOutAndShownOnesShowTheirParts) {
    Rec out{};
    Rec key{9, 0, "abc"};
    unsigned int count = 12;
    EXPECT_EQ(0, sample_outputs(out, count, key));
    auto calls = tovr_sim::calls("sample_outputs");
    ASSERT_EQ(1u, calls.size());
    EXPECT_EQ((std::vector<std::string>{"12", "9", "abc"}), calls[0].args);
}

TEST_F(SimControl, ForcingsSeeEveryArgumentIncludingUnrecordedOnes) {
    Rec out{};
    Rec key{1, 2, "k"};
    unsigned int count = 0;
    tovr_sim::force("sample_outputs", [&](const tovr_sim::Params& p) {
        EXPECT_EQ(3u, p.size());
        EXPECT_EQ(static_cast<void*>(&out), p[0]);
        EXPECT_EQ(static_cast<void*>(&count), p[1]);
        EXPECT_EQ(static_cast<void*>(&key), p[2]);
        static_cast<Rec*>(p[0])->a = 77;
        return -9L;
    });
    EXPECT_EQ(-9, sample_outputs(out, count, key));
    EXPECT_EQ(77, out.a);
}

TEST_F(SimControl, MembersWithoutArgumentsAndRenamedOnesAreRecorded) {
    EXPECT_EQ(3u, sample_no_arguments());
    EXPECT_EQ(0, sample_renamed(5));
    ASSERT_EQ(1u, tovr_sim::calls("sample_no_arguments").size());
    EXPECT_TRUE(tovr_sim::calls("sample_no_arguments")[0].args.empty());
    EXPECT_TRUE(tovr_sim::calls("sample_renamed").empty());
    ASSERT_EQ(1u, tovr_sim::calls("another_name").size());
    EXPECT_EQ((std::vector<std::string>{"5"}), tovr_sim::calls("another_name")[0].args);
    tovr_sim::force_result("another_name", 0x04010005L);
    EXPECT_EQ(0x04010005, sample_renamed(6));
}

TEST_F(SimControl, ARecordArgumentIsShownByItsAddress) {
    Rec in{};
    sample_record_argument(in);
    EXPECT_EQ(std::to_string(reinterpret_cast<std::uintptr_t>(&in)), tovr_sim::calls("sample_record_argument")[0].args[0]);
}

TEST_F(SimControl, OverloadsAreRecordedUnderTheFacadeFunctionsOwnName) {
    esv_zel_job_facade* f = esv_zel_job_facade::esv_zel_job_get_instance();
    unsigned int id = 0;
    ASSERT_EQ(0, f->esv_zel_job_generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_COPY, id));
    unsigned int n = 0;
    std::string text = "x";
    unsigned int v1 = 0, v2 = 0, v3 = 0;
    f->esv_zel_job_get_value(id, ESV_ZEL_JOB_SETTING_COPIES, n);
    f->esv_zel_job_get_value(id, ESV_ZEL_JOB_SETTING_JOB_NAME, text);
    f->esv_zel_job_get_value(id, ESV_ZEL_PHB_SETTING_ID_ERASE_FRAME, v1, v2, v3);
    auto calls = tovr_sim::calls("esv_zel_job_get_value");
    ASSERT_EQ(3u, calls.size());
    EXPECT_EQ((std::vector<std::string>{"1", std::to_string(ESV_ZEL_JOB_SETTING_COPIES), "0"}), calls[0].args);
    EXPECT_EQ((std::vector<std::string>{"1", std::to_string(ESV_ZEL_JOB_SETTING_JOB_NAME), "x"}), calls[1].args);
    EXPECT_EQ(5u, calls[2].args.size());
}

TEST_F(SimControl, TheJobFacadeShowsKeyFieldsOfRecordsAndSizesOfListsAndLeavesOutputRecordsOut) {
    esv_zel_job_facade* f = esv_zel_job_facade::esv_zel_job_get_instance();
    ESV_ZEL_JOB_SEND_INFO info{};
    info.address_type = ESV_ZEL_JOB_ADDRESS_TYPE_FAX;
    unsigned int address_id = 4;
    f->esv_zel_job_add_address(3, address_id, info);
    ESV_ZEL_BOX_JOB_INIT_SETTING box{};
    box.box_job_type = 2;
    box.box_id = 4000000000u;
    f->esv_zel_job_box_job_prepare(3, box);
    ESV_ZEL_PHB_COMBINE_DOC_INFO combine{};
    combine.box_id = 12;
    f->esv_zel_job_combine_document(3, combine);
    std::vector<unsigned int> ids = {1, 2};
    unsigned int count = 9;
    f->esv_zel_job_get_address_id(3, count, ids);
    f->esv_zel_job_get_job_list(ESV_ZEL_JOB_KIND_ALL, ids);
    ESV_ZEL_PHB_GET_MESSAGE message{};
    f->esv_zel_job_get_main_message(3, message);
    ESV_ZEL_JOB_GET_SCAN_DATA data{};
    f->esv_zel_job_get_scan_data(101, data);
    f->esv_zel_job_get_address(3, 1, info);
    ESV_ZEL_JOBINFO_SEND_INFO send{};
    esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_get_send_info(send);

    auto args = [](const char* op) { return tovr_sim::calls(op).at(0).args; };
    EXPECT_EQ((std::vector<std::string>{"3", "4", std::to_string(ESV_ZEL_JOB_ADDRESS_TYPE_FAX)}), args("esv_zel_job_add_address"));
    EXPECT_EQ((std::vector<std::string>{"3", "2", "4000000000"}), args("esv_zel_job_box_job_prepare"));
    EXPECT_EQ((std::vector<std::string>{"3", "12"}), args("esv_zel_job_combine_document"));
    EXPECT_EQ((std::vector<std::string>{"3", "9", "2"}), args("esv_zel_job_get_address_id"));
    EXPECT_EQ((std::vector<std::string>{std::to_string(ESV_ZEL_JOB_KIND_ALL), "2"}), args("esv_zel_job_get_job_list"));
    EXPECT_EQ((std::vector<std::string>{"3"}), args("esv_zel_job_get_main_message"));
    EXPECT_EQ((std::vector<std::string>{"101"}), args("esv_zel_job_get_scan_data"));
    EXPECT_EQ((std::vector<std::string>{"3", "1"}), args("esv_zel_job_get_address"));
    EXPECT_TRUE(args("esv_zel_jobinfo_get_send_info").empty());
}

// ---------------------------------------------------------------------------------------------
// Forced outputs

TEST_F(SimControl, AForcedNumberIsWrittenAndTheCodeAnsweredWithoutTheDevicesOwnBehaviour) {
    esv_zel_job_facade* f = esv_zel_job_facade::esv_zel_job_get_instance();
    ASSERT_TRUE(tovr_sim::force_output("esv_zel_job_get_value", 0x04010006L,
                                       tovr_sim::output_number(2, "uint32", 4000000000LL)));
    unsigned int val = 0;
    // Set 5 does not exist: the device would answer PARAM_ERROR and write nothing.
    EXPECT_EQ(0x04010006, f->esv_zel_job_get_value(5, ESV_ZEL_JOB_SETTING_COPIES, val));
    EXPECT_EQ(4000000000u, val);
    EXPECT_TRUE(tovr_sim::output_refusals().empty());
    // Once only: the next call is the device's own.
    EXPECT_EQ(ESV_ZEL_JOB_PARAM_ERROR, f->esv_zel_job_get_value(5, ESV_ZEL_JOB_SETTING_COPIES, val));
    EXPECT_EQ(2u, tovr_sim::calls("esv_zel_job_get_value").size());
}

TEST_F(SimControl, AForcedStringIsAssigned) {
    esv_zel_job_facade* f = esv_zel_job_facade::esv_zel_job_get_instance();
    ASSERT_TRUE(tovr_sim::force_output("esv_zel_job_get_value", 0,
                                       tovr_sim::output_text(2, "string", "quarterly report")));
    std::string val = "old";
    EXPECT_EQ(0, f->esv_zel_job_get_value(1, ESV_ZEL_JOB_SETTING_JOB_NAME, val));
    EXPECT_EQ("quarterly report", val);
}

TEST_F(SimControl, ACharArrayFieldIsCutAtItsSizeAndAlwaysTerminated) {
    esv_zel_job_facade* f = esv_zel_job_facade::esv_zel_job_get_instance();
    const std::size_t at = offsetof(ESV_ZEL_PHB_GET_MESSAGE, msg_detail_filename);
    const std::string long_name(400, 'n');
    ASSERT_TRUE(tovr_sim::force_outputs(
        "esv_zel_job_get_main_message", 0,
        {tovr_sim::output_number(1, "int32", -3), tovr_sim::output_text(1, "char[257]", long_name, at)}));
    ESV_ZEL_PHB_GET_MESSAGE m;
    std::memset(&m, 0x5A, sizeof m);
    EXPECT_EQ(0, f->esv_zel_job_get_main_message(1, m));
    EXPECT_EQ(-3, m.main_msg_1);
    EXPECT_EQ(std::string(256, 'n'), std::string(m.msg_detail_filename));
    EXPECT_EQ('\0', m.msg_detail_filename[256]);
    EXPECT_EQ(0x5A5A5A5A, m.main_msg_2);  // untouched
    EXPECT_TRUE(tovr_sim::output_refusals().empty());

    // A short text zero-fills the rest of the field.
    ASSERT_TRUE(tovr_sim::force_output("esv_zel_job_get_main_message", 0,
                                       tovr_sim::output_text(1, "char[257]", "a.pdf", at)));
    std::memset(&m, 0x5A, sizeof m);
    EXPECT_EQ(0, f->esv_zel_job_get_main_message(1, m));
    EXPECT_EQ("a.pdf", std::string(m.msg_detail_filename));
    for (std::size_t i = 5; i < sizeof m.msg_detail_filename; ++i) ASSERT_EQ('\0', m.msg_detail_filename[i]) << i;
}

TEST_F(SimControl, RawBytesAndACountTogether) {
    esv_zel_job_facade* f = esv_zel_job_facade::esv_zel_job_get_instance();
    std::vector<unsigned char> bytes = {0, 1, 2, 0xFF, 0x80};
    ASSERT_TRUE(tovr_sim::force_outputs(
        "esv_zel_job_get_scan_data", 0,
        {tovr_sim::output_bytes(1, "bytes[4096]", bytes),
         tovr_sim::output_number(1, "uint32", 5, offsetof(ESV_ZEL_JOB_GET_SCAN_DATA, data_size)),
         tovr_sim::output_number(1, "int32", 1, offsetof(ESV_ZEL_JOB_GET_SCAN_DATA, doc_state))}));
    ESV_ZEL_JOB_GET_SCAN_DATA d;
    std::memset(&d, 0x33, sizeof d);
    EXPECT_EQ(0, f->esv_zel_job_get_scan_data(999, d));
    EXPECT_EQ(0, std::memcmp(d.scan_data, bytes.data(), bytes.size()));
    for (std::size_t i = bytes.size(); i < sizeof d.scan_data; ++i) ASSERT_EQ(0, d.scan_data[i]) << i;
    EXPECT_EQ(5u, d.data_size);
    EXPECT_EQ(1, d.doc_state);
    // Bytes beyond N are not copied.
    ASSERT_TRUE(tovr_sim::force_output("esv_zel_job_get_scan_data", 0,
                                       tovr_sim::output_bytes(1, "bytes[2]", {9, 8, 7, 6})));
    std::memset(&d, 0x33, sizeof d);
    EXPECT_EQ(0, f->esv_zel_job_get_scan_data(999, d));
    EXPECT_EQ(9, d.scan_data[0]);
    EXPECT_EQ(8, d.scan_data[1]);
    EXPECT_EQ(0x33, d.scan_data[2]);
}

TEST_F(SimControl, EveryIntegerKindKeepsTheLowBitsOfItsNumber) {
    ASSERT_TRUE(tovr_sim::force_outputs(
        "sample_numbers", 0,
        {tovr_sim::output_number(0, "int8", -2), tovr_sim::output_number(1, "uint8", 0x1FF),
         tovr_sim::output_number(2, "int16", -300), tovr_sim::output_number(3, "uint16", 65535),
         tovr_sim::output_number(4, "int32", -70000), tovr_sim::output_number(5, "uint32", -1),
         tovr_sim::output_number(6, "int64", -5000000000LL), tovr_sim::output_number(7, "uint64", -1),
         tovr_sim::output_number(8, "long", -123456), tovr_sim::output_number(9, "ulong", 4000000000LL)}));
    signed char s8 = 0;
    unsigned char u8 = 0;
    short s16 = 0;
    unsigned short u16 = 0;
    int s32 = 0;
    unsigned int u32 = 0;
    long long s64 = 0;
    unsigned long long u64 = 0;
    long l = 0;
    unsigned long ul = 0;
    EXPECT_EQ(0, sample_numbers(s8, u8, s16, u16, s32, u32, s64, u64, l, ul));
    EXPECT_EQ(-2, s8);
    EXPECT_EQ(0xFF, u8);
    EXPECT_EQ(-300, s16);
    EXPECT_EQ(65535, u16);
    EXPECT_EQ(-70000, s32);
    EXPECT_EQ(0xFFFFFFFFu, u32);
    EXPECT_EQ(-5000000000LL, s64);
    EXPECT_EQ(~0ULL, u64);
    EXPECT_EQ(-123456L, l);
    EXPECT_EQ(4000000000UL, ul);
    EXPECT_TRUE(tovr_sim::output_refusals().empty());
}

TEST_F(SimControl, ACharacterBufferArgumentTakesTextAndAPointerToANumberTakesTheNumber) {
    char buffer[16];
    std::memset(buffer, 'x', sizeof buffer);
    buffer[sizeof buffer - 1] = '\0';  // the call records the buffer's text as it comes in
    unsigned int count = 0;
    ASSERT_TRUE(tovr_sim::force_outputs("sample_buffer", 0,
                                        {tovr_sim::output_text(0, "char[8]", "abcdefghijk"),
                                         tovr_sim::output_number(1, "uint32", 11)}));
    EXPECT_EQ(0, sample_buffer(buffer, &count));
    EXPECT_EQ("abcdefg", std::string(buffer));
    EXPECT_EQ('x', buffer[8]);
    EXPECT_EQ(11u, count);
}

TEST_F(SimControl, ABufferOfUnknownSizeIsNeverWrittenAndOneOfDeclaredSizeOnlyWithinIt) {
    char buffer[32];
    std::memset(buffer, 'x', sizeof buffer);
    buffer[sizeof buffer - 1] = '\0';
    ASSERT_TRUE(tovr_sim::force_output("sample_unsized", 0, tovr_sim::output_text(0, "char[4]", "abc")));
    EXPECT_EQ(0, sample_unsized(buffer));
    EXPECT_EQ('x', buffer[0]);
    ASSERT_TRUE(tovr_sim::force_outputs("sample_buffer", 0,
                                        {tovr_sim::output_text(0, "char[17]", "too long"),
                                         tovr_sim::output_bytes(0, "bytes[4]", {'a', 'b'}, 13)}));
    EXPECT_EQ(0, sample_buffer(buffer, nullptr));
    EXPECT_EQ('x', buffer[0]);
    EXPECT_EQ('x', buffer[16]);
    EXPECT_EQ((std::vector<std::string>{"sample_unsized: argument 0: a character buffer of unknown size",
                                        "sample_buffer: argument 0: past the end of the record (16 bytes)",
                                        "sample_buffer: argument 0: past the end of the record (16 bytes)"}),
              tovr_sim::output_refusals());
}

TEST_F(SimControl, AStringMemberOfARecordIsAssignedAndNothingElseWritesOverIt) {
    Named n{"old", 5, "keep"};
    unsigned long last = 0;
    ASSERT_TRUE(tovr_sim::force_outputs(
        "sample_named", 0,
        {tovr_sim::output_text(0, "string", "new", offsetof(Named, first)),
         tovr_sim::output_value(0, std::uint16_t{9}, offsetof(Named, count)),
         tovr_sim::output_text(0, "string", "x", offsetof(Named, count)),
         tovr_sim::output_bytes(0, "bytes[4]", {1, 2, 3, 4}, offsetof(Named, second)),
         tovr_sim::output_number(0, "uint64", 1, offsetof(Named, first) + 4)}));
    EXPECT_EQ(0, sample_named(n, &last));
    EXPECT_EQ("new", n.first);
    EXPECT_EQ(9u, n.count);
    EXPECT_EQ("keep", n.second);
    const std::string at_count = std::to_string(offsetof(Named, count));
    EXPECT_EQ((std::vector<std::string>{"sample_named: argument 0: no std::string member at offset " + at_count,
                                        "sample_named: argument 0: over a std::string member of the record",
                                        "sample_named: argument 0: over a std::string member of the record"}),
              tovr_sim::output_refusals());
}

TEST_F(SimControl, ANegativeIndexCountsFromTheLastArgument) {
    ASSERT_TRUE(tovr_sim::force_output("sample_overload", 0, tovr_sim::output_value(-1, 77ul), 2));
    unsigned long last = 0;
    EXPECT_EQ(0, sample_overload(1, &last));
    EXPECT_EQ(77ul, last);
    last = 0;
    EXPECT_EQ(0, sample_overload(1, 2, &last));
    EXPECT_EQ(77ul, last);
    ASSERT_TRUE(tovr_sim::force_output("sample_overload", 0, tovr_sim::output_value(-4, 1ul)));
    EXPECT_EQ(0, sample_overload(1, 2, &last));
    EXPECT_EQ((std::vector<std::string>{"sample_overload: argument -4: the call has 3 arguments"}),
              tovr_sim::output_refusals());
}

TEST_F(SimControl, WritesThatDoNotFitAreRefusedAndListedAndTheCodeIsAnsweredAllTheSame) {
    esv_zel_job_facade* f = esv_zel_job_facade::esv_zel_job_get_instance();
    // A 16-bit value into a 32-bit output, a text into a number, an argument the call lacks.
    ASSERT_TRUE(tovr_sim::force_outputs("esv_zel_job_get_value", 0x04010001L,
                                        {tovr_sim::output_number(2, "int16", 7), tovr_sim::output_text(2, "string", "t"),
                                         tovr_sim::output_number(9, "uint32", 7)}));
    unsigned int val = 5;
    EXPECT_EQ(0x04010001, f->esv_zel_job_get_value(1, ESV_ZEL_JOB_SETTING_COPIES, val));
    EXPECT_EQ(5u, val);
    // Past the end of a record, and into an input the device only reads.
    ASSERT_TRUE(tovr_sim::force_output("esv_zel_job_get_main_message", 0,
                                       tovr_sim::output_text(1, "char[257]", "x", 32)));
    ESV_ZEL_PHB_GET_MESSAGE m{};
    EXPECT_EQ(0, f->esv_zel_job_get_main_message(1, m));
    EXPECT_EQ('\0', m.msg_detail_filename[4]);
    ASSERT_TRUE(tovr_sim::force_output("esv_zel_job_update_address", 0, tovr_sim::output_number(2, "int32", 1)));
    ESV_ZEL_JOB_SEND_INFO info{};
    EXPECT_EQ(0, f->esv_zel_job_update_address(1, 1, info));
    EXPECT_EQ(0, info.address_type);
    // A null argument.
    ASSERT_TRUE(tovr_sim::force_output("sample_buffer", 0, tovr_sim::output_text(0, "char[4]", "abc")));
    EXPECT_EQ(0, sample_buffer(nullptr, nullptr));

    const std::vector<std::string> refusals = tovr_sim::output_refusals();
    ASSERT_EQ(6u, refusals.size());
    EXPECT_EQ("esv_zel_job_get_value: argument 2: the argument has 4 bytes, the kind 2", refusals[0]);
    EXPECT_EQ("esv_zel_job_get_value: argument 2: the argument is a number", refusals[1]);
    EXPECT_EQ("esv_zel_job_get_value: argument 9: the call has 3 arguments", refusals[2]);
    EXPECT_EQ("esv_zel_job_get_main_message: argument 1: past the end of the record (288 bytes)", refusals[3]);
    EXPECT_EQ("esv_zel_job_update_address: argument 2: the argument is not an output the device writes", refusals[4]);
    EXPECT_EQ("sample_buffer: argument 0: the argument is null", refusals[5]);
    tovr_sim::reset();
    EXPECT_TRUE(tovr_sim::output_refusals().empty());
}

TEST_F(SimControl, AnUnknownKindArmsNothing) {
    for (const char* kind : {"uint33", "char[0]", "char[]", "bytes[x]", "char[99999999]", "String", ""}) {
        EXPECT_FALSE(tovr_sim::valid_output_kind(kind)) << kind;
        EXPECT_FALSE(tovr_sim::force_output("esv_zel_job_get_value", 0, tovr_sim::output_number(2, kind, 1))) << kind;
    }
    unsigned int val = 5;
    EXPECT_EQ(ESV_ZEL_JOB_PARAM_ERROR,
              esv_zel_job_facade::esv_zel_job_get_instance()->esv_zel_job_get_value(1, ESV_ZEL_JOB_SETTING_COPIES, val));
    EXPECT_EQ(5u, val);
    for (const char* kind : {"int8", "uint8", "int16", "uint16", "int32", "uint32", "int64", "uint64", "long", "ulong",
                             "string", "char[1]", "char[257]", "bytes[1]", "bytes[4096]"}) {
        EXPECT_TRUE(tovr_sim::valid_output_kind(kind)) << kind;
    }
}

TEST_F(SimControl, ForcedOutputsLastTheirNumberOfCallsOrForEver) {
    ASSERT_TRUE(tovr_sim::force_output("sample_buffer", 4, tovr_sim::output_number(1, "uint32", 1), 2));
    unsigned int count = 0;
    EXPECT_EQ(4, sample_buffer(nullptr, &count));
    count = 0;
    EXPECT_EQ(4, sample_buffer(nullptr, &count));
    EXPECT_EQ(1u, count);
    count = 0;
    EXPECT_EQ(0, sample_buffer(nullptr, &count));
    EXPECT_EQ(0u, count);
    ASSERT_TRUE(tovr_sim::force_output("sample_buffer", 5, tovr_sim::output_number(1, "uint32", 2), -1));
    for (int i = 0; i < 5; ++i) {
        count = 0;
        EXPECT_EQ(5, sample_buffer(nullptr, &count));
        EXPECT_EQ(2u, count);
    }
}

TEST_F(SimControl, PassedCallsBehaveAsTheDevicesOwnAndTheForcingAfterThemReachesALaterCall) {
    tovr_sim::pass("sample_no_arguments", 2);
    tovr_sim::force_result("sample_no_arguments", 9);
    EXPECT_EQ(3u, sample_no_arguments());
    EXPECT_EQ(3u, sample_no_arguments());
    EXPECT_EQ(9u, sample_no_arguments());
    EXPECT_EQ(3u, sample_no_arguments());
}

TEST_F(SimControl, AHookRunsAtTheNthCallWhichThenBehavesAsTheDevicesOwn) {
    int seen = 0;
    tovr_sim::on_call("sample_no_arguments", [&] { seen = static_cast<int>(tovr_sim::calls("sample_no_arguments").size()); }, 3);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(3u, sample_no_arguments());
    EXPECT_EQ(3, seen);  // the third call was recorded when its hook ran
}

// ---------------------------------------------------------------------------------------------
// The bounded call record

TEST_F(SimControl, TheRecordKeepsTheMostRecentCallsAndCountsTheDroppedOnes) {
    EXPECT_EQ(tovr_sim::kDefaultCallLimit, tovr_sim::call_limit());
    tovr_sim::set_call_limit(3);
    for (int i = 0; i < 5; ++i) sample_renamed(i);
    const std::vector<tovr_sim::Call> calls = tovr_sim::calls();
    ASSERT_EQ(3u, calls.size());
    EXPECT_EQ("2", calls[0].args[0]);
    EXPECT_EQ("4", calls[2].args[0]);
    EXPECT_EQ(3u, tovr_sim::call_count());
    EXPECT_EQ(2u, tovr_sim::dropped_calls());
    tovr_sim::set_call_limit(1);  // lowering it drops at once
    EXPECT_EQ(1u, tovr_sim::call_count());
    EXPECT_EQ(4u, tovr_sim::dropped_calls());
    tovr_sim::clear_calls();
    EXPECT_EQ(0u, tovr_sim::dropped_calls());
    tovr_sim::reset();
    EXPECT_EQ(tovr_sim::kDefaultCallLimit, tovr_sim::call_limit());
}

TEST_F(SimControl, AForcingStillAppliesWhenTheRecordKeepsNothing) {
    tovr_sim::set_call_limit(0);
    tovr_sim::force_result("another_name", 6);
    EXPECT_EQ(6, sample_renamed(1));
    EXPECT_TRUE(tovr_sim::calls().empty());
    EXPECT_EQ(1u, tovr_sim::dropped_calls());
}

// ---------------------------------------------------------------------------------------------
// The registered services

TEST_F(SimControl, EveryServiceRegistersItselfAndOneResetReachesThemAll) {
    EXPECT_EQ((std::vector<std::string>{"acc", "address", "box", "common", "job", "jobinfo", "panel", "storage",
                                        "systeminfo", "user", "webservice"}),
              tovr_sim::service_names());
    EXPECT_EQ(-1, tovr_sim::observer_count("no such facade"));
    EXPECT_EQ(-1, tovr_sim::observer_count("storage"));  // a service without observers
    tovr_sim::box_add_folder("/kept");
    tovr_sim::force_result("sample_no_arguments", 1);
    sample_renamed(1);
    tovr_sim::reset_all();
    EXPECT_FALSE(tovr_sim::box_exists("/kept"));
    EXPECT_EQ(3u, sample_no_arguments());
    ASSERT_EQ(1u, tovr_sim::calls().size());  // the call just made
    EXPECT_TRUE(tovr_sim::trace_lines().empty());
}

// ---------------------------------------------------------------------------------------------
// Platform memory and open resources

TEST_F(SimControl, FreeingAPlatformBlockIsRecordedWithThePartAndTheBlockAddress) {
    const int before = tovr_sim::open_resources(tovr_sim::kPlatformBlock);
    void* block = emwOSWSubAllocMem(64);
    ASSERT_NE(nullptr, block);
    EXPECT_EQ(before + 1, tovr_sim::open_resources("platform block"));
    EXPECT_EQ(0, emwOSWOrgFreeMemPart(0, block));
    EXPECT_EQ(before, tovr_sim::open_resources("platform block"));
    auto calls = tovr_sim::calls("emwOSWOrgFreeMemPart");
    ASSERT_EQ(1u, calls.size());
    EXPECT_EQ((std::vector<std::string>{"0", std::to_string(reinterpret_cast<std::uintptr_t>(block))}), calls[0].args);
}

TEST_F(SimControl, FreeingWhatWasNotHandedOutFailsAndIsRecorded) {
    int local = 0;
    EXPECT_EQ(-1, emwOSWOrgFreeMemPart(0, &local));
    EXPECT_EQ(-1, emwOSWOrgFreeMemPart(0, nullptr));
    auto calls = tovr_sim::calls("emwOSWOrgFreeMemPart");
    ASSERT_EQ(2u, calls.size());
    EXPECT_EQ("null", calls[1].args[1]);
}

TEST_F(SimControl, AForcedFreeAnswersItsCodeAndLeavesTheBlockOutstanding) {
    const int before = tovr_sim::open_resources(tovr_sim::kPlatformBlock);
    void* block = emwOSWSubAllocMem(8);
    ASSERT_NE(nullptr, block);
    tovr_sim::force_result("emwOSWOrgFreeMemPart", 5);
    EXPECT_EQ(5, emwOSWOrgFreeMemPart(0, block));
    EXPECT_EQ(before + 1, tovr_sim::open_resources(tovr_sim::kPlatformBlock));
    EXPECT_EQ(0, emwOSWOrgFreeMemPart(0, block));
    EXPECT_EQ(before, tovr_sim::open_resources(tovr_sim::kPlatformBlock));
}

TEST_F(SimControl, ResourcesAreCountedByKind) {
    EXPECT_EQ(0, tovr_sim::open_resources("sample handle"));
    tovr_sim::resource_opened("sample handle");
    tovr_sim::resource_opened("sample handle");
    tovr_sim::resource_opened(tovr_sim::kFileHandle);
    EXPECT_EQ(2, tovr_sim::open_resources("sample handle"));
    tovr_sim::resource_closed("sample handle");
    tovr_sim::resource_closed(tovr_sim::kFileHandle);
    EXPECT_EQ(1, tovr_sim::open_resources("sample handle"));
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kFileHandle));
    tovr_sim::resource_closed("sample handle");
    EXPECT_EQ(0, tovr_sim::open_resources("sample handle"));
}

TEST_F(SimControl, TheJobLogsListsAreCountedAsListHandles) {
    ESV_ZEL_JOBINFO_JOBLOG log{};
    log.job_log_type = ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND;
    const unsigned int receipt = tovr_sim::add_joblog(log, {ESV_ZEL_JOBINFO_SEND_INFO{}}, {ESV_ZEL_JOBINFO_RECEIVE_INFO{}});
    esv_zel_jobinfo_facade* f = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance();
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kListHandle));
    ASSERT_EQ(0, f->esv_zel_jobinfo_create_send_info_list(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND));
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kListHandle));
    ASSERT_EQ(0, f->esv_zel_jobinfo_create_receive_info_list(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND));
    EXPECT_EQ(2, tovr_sim::open_resources(tovr_sim::kListHandle));
    // A second create of an open list fails and opens nothing.
    EXPECT_EQ(ESV_ZEL_JOBINFO_LIST_OPERATE_ERROR,
              f->esv_zel_jobinfo_create_send_info_list(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND));
    EXPECT_EQ(2, tovr_sim::open_resources(tovr_sim::kListHandle));
    EXPECT_EQ(0, f->esv_zel_jobinfo_delete_send_info_list());
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kListHandle));
    EXPECT_EQ(ESV_ZEL_JOBINFO_LIST_OPERATE_ERROR, f->esv_zel_jobinfo_delete_send_info_list());
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kListHandle));
    // A forced delete changes nothing on the device.
    tovr_sim::force_result("esv_zel_jobinfo_delete_receive_info_list", 0);
    EXPECT_EQ(0, f->esv_zel_jobinfo_delete_receive_info_list());
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kListHandle));
    // Resetting the job service drops the list left open.
    tovr_sim::reset_jobs();
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kListHandle));
}

// ---------------------------------------------------------------------------------------------
// The job facades as observed facades

class CountingObserver : public tarnwick::esv_zel_job_observer {
public:
    long notify_job_state_changed(ESV_ZEL_JOB_STATE) override { return 0; }
    long notify_scan_count(unsigned int, unsigned int) override { return 0; }
    long notify_start_phb(unsigned int id) override {
        on_facade_thread = tovr_sim::job_facade().on_facade_thread();
        return static_cast<long>(id) + 1;
    }
    long notify_disable_info(unsigned int) override { return 0; }
    long notify_main_message(unsigned int) override { return 0; }
    long notify_phb_info(unsigned int, ESV_ZEL_PHB_INFO&) override { return 0; }
    long notify_message_info(unsigned int, ESV_ZEL_PHB_GET_MESSAGE&) override { return 0; }
    bool on_facade_thread = false;
};

TEST_F(SimControl, TheJobFacadeDeliversOnItsOwnThreadToTheObserversItKeeps) {
    CountingObserver o;
    esv_zel_job_facade* f = esv_zel_job_facade::esv_zel_job_get_instance();
    ASSERT_EQ(0, f->esv_zel_job_add_observer(&o));
    EXPECT_TRUE(tovr_sim::job_facade().observers().contains(&o));
    EXPECT_EQ(tovr_sim::job_observer_count(), tovr_sim::job_facade().observers().size());
    EXPECT_FALSE(tovr_sim::job_facade().on_facade_thread());
    EXPECT_EQ((tovr_sim::Answers{8}), tovr_sim::raise_start_phb(7));
    EXPECT_TRUE(o.on_facade_thread);
    EXPECT_EQ((tovr_sim::Answers{10}), tovr_sim::job_post([](tarnwick::esv_zel_job_observer* x) {
                                           return static_cast<unsigned long>(x->notify_start_phb(9));
                                       }).get());
    ASSERT_EQ(0, f->esv_zel_job_remove_observer(&o));
    EXPECT_FALSE(tovr_sim::job_observer_registered(&o));
    EXPECT_EQ(ESV_ZEL_JOB_NO_OBSERVER, f->esv_zel_job_remove_observer(&o));
}

class PageObserver : public tarnwick::esv_zel_jobinfo_observer {
public:
    long notify_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG&) override { return 0; }
    long notify_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE&) override { return 0; }
    long notify_renint_start_info(const ESV_ZEL_EVENT_RENINT_START&, const char*) override { return 0; }
    long notify_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE&) override { return 0; }
    long notify_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page) override {
        on_facade_thread = tovr_sim::jobinfo_facade().on_facade_thread();
        // From inside a notification a raise is delivered in place, not queued behind itself.
        nested = tovr_sim::jobinfo_facade().raise([](tarnwick::esv_zel_jobinfo_observer*) { return 5UL; });
        return static_cast<long>(page.page_num) * 10;
    }
    bool on_facade_thread = false;
    tovr_sim::Answers nested;
};

TEST_F(SimControl, TheJobInformationFacadeIsObservedTheSameWay) {
    PageObserver o;
    esv_zel_jobinfo_facade* f = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance();
    ASSERT_EQ(0, f->esv_zel_jobinfo_add_observer(&o));
    EXPECT_EQ(ESV_ZEL_JOBINFO_DUPL_OBSERVER, f->esv_zel_jobinfo_add_observer(&o));
    EXPECT_TRUE(tovr_sim::jobinfo_facade().observers().contains(&o));
    EXPECT_EQ(tovr_sim::jobinfo_observer_count(), tovr_sim::jobinfo_facade().observers().size());
    ESV_ZEL_EVENT_SCAN_PAGE page{};
    page.page_num = 3;
    EXPECT_EQ((tovr_sim::Answers{30}), tovr_sim::raise_scan_page_info(page));
    EXPECT_TRUE(o.on_facade_thread);
    EXPECT_EQ((tovr_sim::Answers{5}), o.nested);
    EXPECT_FALSE(tovr_sim::jobinfo_facade().on_facade_thread());
    ASSERT_EQ(0, f->esv_zel_jobinfo_remove_observer(&o));
    EXPECT_FALSE(tovr_sim::jobinfo_observer_registered(&o));
    auto calls = tovr_sim::calls("esv_zel_jobinfo_add_observer");
    ASSERT_EQ(2u, calls.size());
    EXPECT_EQ((std::vector<std::string>{std::to_string(reinterpret_cast<std::uintptr_t>(&o))}), calls[0].args);
}

}  // namespace
