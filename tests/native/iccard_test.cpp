// The IC card reader settings against the simulated reader: reader information and status,
// read types with their traces, the class-wide FeliCa staging, site mapping, the low byte of
// the block counts, failed reads, and indexes outside the two slots.
#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "cmt_device_iccard.h"
#include "sim_fixture.h"
#include "tovr_sim_device.h"
#include "tovr_sim_job.h"

using sim_test::args_of;
using sim_test::Line;
using tarnwick::CMT_Device_ICCard;

namespace {

std::vector<Line> lines() { return sim_test::lines_of("cmt_device_iccard"); }

ESV_ZEL_ACC_FELICA_SETTING_INFO felica(const char* sys, const char* s1, const char* s2, unsigned char b1,
                                       unsigned char b2) {
    return ESV_ZEL_ACC_FELICA_SETTING_INFO{sys, s1, s2, b1, b2};
}

class ICCard : public sim_test::SimDeviceTest {};

TEST_F(ICCard, Constants) {
    EXPECT_EQ(-1, CMT_Device_ICCard::READER_UNKNOWN);
    EXPECT_EQ(0, CMT_Device_ICCard::READER_NOT_EXIST);
    EXPECT_EQ(1, CMT_Device_ICCard::READER_EXIST);
    EXPECT_EQ(1, CMT_Device_ICCard::SETTING_SITE_1);
    EXPECT_EQ(2, CMT_Device_ICCard::SETTING_SITE_2);
    EXPECT_EQ(1, CMT_Device_ICCard::READ_IDM);
    EXPECT_EQ(2, CMT_Device_ICCard::READ_FELICA);
}

TEST_F(ICCard, ReaderInfoAndItsGetters) {
    CMT_Device_ICCard card;
    tovr_sim::acc_set_reader(0xFFFF, 0x8001, 0xFF);
    EXPECT_TRUE(card.getReaderInfo());
    EXPECT_EQ(0xFFFF, card.getVendorID());
    EXPECT_EQ(0x8001, card.getProductID());
    EXPECT_EQ(0xFF, card.getCardTypes());
    EXPECT_EQ(4u, tovr_sim::calls("esv_zel_acc_get_iccard_device_info").size());  // each getter asks again
    tovr_sim::acc_plug_reader(false);
    EXPECT_FALSE(card.getReaderInfo());
    EXPECT_EQ(-1, card.getVendorID());
    EXPECT_EQ(-1, card.getProductID());
    EXPECT_EQ(-1, card.getCardTypes());
    EXPECT_TRUE(lines().empty());
}

TEST_F(ICCard, FailedReaderInfoLeavesTheFields) {
    CMT_Device_ICCard card;
    tovr_sim::acc_set_reader(0x10, 0x20, 3);
    ASSERT_TRUE(card.getReaderInfo());
    // The facade writes its record and fails: nothing reaches the object.
    tovr_sim::force_output("esv_zel_acc_get_iccard_device_info", 5,
                           tovr_sim::output_record(0, ESV_ZEL_ACC_ICCARD_DEVICE_INFO{1, 2, 3}));
    EXPECT_FALSE(card.getReaderInfo());
    tovr_sim::acc_set_reader(0x11, 0x21, 4);
    tovr_sim::force_result("esv_zel_acc_get_iccard_device_info", 5);
    EXPECT_EQ(-1, card.getVendorID());
    EXPECT_EQ(0x11, card.getVendorID());
}

TEST_F(ICCard, ReaderStatus) {
    CMT_Device_ICCard card;
    EXPECT_EQ(1, card.getReaderStatus());
    tovr_sim::acc_plug_reader(false);
    EXPECT_EQ(0, card.getReaderStatus());
    for (unsigned int status : {2u, 3u, 0xFFFFFFFFu}) {
        tovr_sim::force_output("esv_zel_acc_get_rw_status", 0, tovr_sim::output_value(0, status));
        EXPECT_EQ(-1, card.getReaderStatus()) << status;
    }
    tovr_sim::force_output("esv_zel_acc_get_rw_status", 1, tovr_sim::output_value(0, 1u));
    EXPECT_EQ(-1, card.getReaderStatus());  // failed query
}

TEST_F(ICCard, ReaderTypeIsASignedByteTracedOnEntry) {
    CMT_Device_ICCard card;
    EXPECT_TRUE(card.setReaderType(static_cast<char>(200)));
    EXPECT_EQ(0xC8, tovr_sim::acc_read_type());
    EXPECT_EQ((std::vector<std::string>{"200"}), args_of("esv_zel_acc_set_iccard_read_type")[0]);
    EXPECT_EQ((std::vector<Line>{{3, "setReaderType,[Enter] card_device_type = -56"}, {3, "setReaderType,true!!"}}), lines());
    tovr_sim::clear_trace();
    tovr_sim::force_result("esv_zel_acc_set_iccard_read_type", 1);
    EXPECT_FALSE(card.setReaderType(5));
    EXPECT_EQ((std::vector<Line>{{3, "setReaderType,[Enter] card_device_type = 5"}, {0, "setReaderType,false!!"}}), lines());
    // The Java char 0x1FF keeps its low byte.
    EXPECT_TRUE(card.setReaderType(static_cast<char>(0x1FF & 0xFF)));
    EXPECT_EQ(0xFF, tovr_sim::acc_read_type());
}

TEST_F(ICCard, TypeCReadType) {
    CMT_Device_ICCard card;
    EXPECT_TRUE(card.setTypeCReadType(CMT_Device_ICCard::READ_FELICA));
    EXPECT_EQ(2, tovr_sim::acc_felica_read_type());
    EXPECT_TRUE(card.setTypeCReadType(CMT_Device_ICCard::READ_IDM));
    EXPECT_EQ(1, tovr_sim::acc_felica_read_type());
    EXPECT_EQ((std::vector<Line>{{3, "setTypeCReadType,true!!"}, {3, "setTypeCReadType,true!!"}}), lines());
    for (int other : {3, 0, -1, 1000}) {
        EXPECT_TRUE(card.setTypeCReadType(other));
    }
    std::vector<std::vector<std::string>> sent = args_of("esv_zel_acc_set_felica_read_type");
    ASSERT_EQ(6u, sent.size());
    for (std::size_t i = 2; i < 6; ++i) EXPECT_EQ("0", sent[i][0]);
    tovr_sim::clear_trace();
    tovr_sim::force_result("esv_zel_acc_set_felica_read_type", 1);
    EXPECT_FALSE(card.setTypeCReadType(1));
    EXPECT_EQ((std::vector<Line>{{0, "setTypeCReadType,CMT_Device_ICCard::setTypeCReadType false!!"}}), lines());
}

TEST_F(ICCard, SetTypeCInfoRightAfterConstructionSendsTheInitialSetting) {
    CMT_Device_ICCard card;
    EXPECT_TRUE(card.setTypeCInfo(CMT_Device_ICCard::SETTING_SITE_2));
    tovr_sim::FelicaSent sent = tovr_sim::acc_last_felica_sent();
    EXPECT_EQ(2, sent.site);
    EXPECT_EQ("0", sent.info.system_code);
    EXPECT_EQ("0", sent.info.service_code_1);
    EXPECT_EQ("0", sent.info.service_code_2);
    EXPECT_EQ(1, sent.info.blk_num_1);
    EXPECT_EQ(1, sent.info.blk_num_2);
    // The staged counts are 0x01010101 (filled bytewise); the reader holds their low byte, 1.
    EXPECT_EQ(1, card.getTypeCBlockNum(2, 0));
}

TEST_F(ICCard, StagedSettingReachesTheSiteAndReadsBack) {
    CMT_Device_ICCard card;
    card.setSystemCode("FE00");
    card.setServiceCode("1A8B", 4, 0);
    card.setServiceCode("0B00", 2, 1);
    EXPECT_TRUE(card.setTypeCInfo(1));
    ESV_ZEL_ACC_FELICA_SETTING_INFO site{};
    ASSERT_TRUE(tovr_sim::acc_felica(1, &site));
    EXPECT_EQ("FE00", site.system_code);
    EXPECT_EQ("1A8B", site.service_code_1);
    EXPECT_EQ("0B00", site.service_code_2);
    EXPECT_EQ(4, site.blk_num_1);
    EXPECT_EQ(2, site.blk_num_2);
    tovr_sim::acc_set_felica(2, felica("8000", "AAAA", "BBBB", 9, 250));
    EXPECT_EQ("8000", card.getTypeCSystemCode(2));
    EXPECT_EQ("AAAA", card.getTypeCServiceCode(2, 0));
    EXPECT_EQ("BBBB", card.getTypeCServiceCode(2, 1));
    EXPECT_EQ(9, card.getTypeCBlockNum(2, 0));
    EXPECT_EQ(250, card.getTypeCBlockNum(2, 1));  // zero-extended
    EXPECT_EQ(5u, tovr_sim::calls("esv_zel_acc_get_felica_info").size());  // every getter re-reads
    // The read replaced the staged setting: sending now sends site 2's values.
    EXPECT_TRUE(card.setTypeCInfo(1));
    ASSERT_TRUE(tovr_sim::acc_felica(1, &site));
    EXPECT_EQ("8000", site.system_code);
    EXPECT_EQ(250, site.blk_num_2);
}

TEST_F(ICCard, SitesOtherThanOneAndTwoSendSiteZero) {
    CMT_Device_ICCard card;
    EXPECT_FALSE(card.setTypeCInfo(0));  // the simulated reader has no site 0
    EXPECT_FALSE(card.setTypeCInfo(5));
    EXPECT_FALSE(card.setTypeCInfo(-1));
    std::vector<std::vector<std::string>> sent = args_of("esv_zel_acc_set_felica_info");
    ASSERT_EQ(3u, sent.size());
    for (const auto& a : sent) EXPECT_EQ("0", a[0]);
    EXPECT_EQ(0, tovr_sim::acc_last_felica_sent().site);
    tovr_sim::force_result("esv_zel_acc_set_felica_info", 0);
    EXPECT_TRUE(card.setTypeCInfo(7));
    EXPECT_FALSE(card.getTypeCInfo(3));
    EXPECT_EQ("0", args_of("esv_zel_acc_get_felica_info")[0][0]);
}

TEST_F(ICCard, ServiceCodeBlockCountTravelsAsItsLowByte) {
    CMT_Device_ICCard card;
    card.setServiceCode("1234", 300, 0);
    card.setServiceCode("5678", -1, 1);
    EXPECT_TRUE(card.setTypeCInfo(1));
    tovr_sim::FelicaSent sent = tovr_sim::acc_last_felica_sent();
    EXPECT_EQ(44, sent.info.blk_num_1);
    EXPECT_EQ(255, sent.info.blk_num_2);
    EXPECT_EQ(44, card.getTypeCBlockNum(1, 0));
}

TEST_F(ICCard, FailedReadGivesBlockZeroAndStringGettersThrow) {
    CMT_Device_ICCard card;
    card.setServiceCode("1234", 7, 0);
    tovr_sim::force_result("esv_zel_acc_get_felica_info", tovr_sim::kAccError, -1);
    EXPECT_FALSE(card.getTypeCInfo(1));
    EXPECT_EQ(0, card.getTypeCBlockNum(1, 0));  // even though 7 is staged
    EXPECT_THROW(card.getTypeCSystemCode(1), std::logic_error);
    EXPECT_THROW(card.getTypeCServiceCode(1, 0), std::logic_error);
    try {
        card.getTypeCSystemCode(2);
        FAIL();
    } catch (const std::logic_error& e) {
        EXPECT_STREQ("basic_string: construction from null is not valid", e.what());
    }
    // Nothing was changed by the failed reads: the staged 7 still goes out.
    tovr_sim::reset();
    EXPECT_TRUE(card.setTypeCInfo(1));
    EXPECT_EQ(7, tovr_sim::acc_last_felica_sent().info.blk_num_1);
    EXPECT_EQ("1234", tovr_sim::acc_last_felica_sent().info.service_code_1);
}

TEST_F(ICCard, IndexesOutsideTheTwoSlotsTouchNothing) {
    CMT_Device_ICCard card;
    card.setServiceCode("A", 5, 0);
    card.setServiceCode("B", 6, 1);
    for (int bad : {2, -1, 1000000, -2147483647 - 1}) {
        card.setServiceCode("XXXX", 99, bad);
    }
    EXPECT_TRUE(card.setTypeCInfo(1));
    tovr_sim::FelicaSent sent = tovr_sim::acc_last_felica_sent();
    EXPECT_EQ("A", sent.info.service_code_1);
    EXPECT_EQ("B", sent.info.service_code_2);
    EXPECT_EQ(5, sent.info.blk_num_1);
    EXPECT_EQ(6, sent.info.blk_num_2);
    for (int bad : {2, -1, 1000000}) {
        EXPECT_EQ(0, card.getTypeCBlockNum(1, bad));
        EXPECT_THROW(card.getTypeCServiceCode(1, bad), std::logic_error);
    }
    EXPECT_EQ("B", card.getTypeCServiceCode(1, 1));
}

TEST_F(ICCard, SecondObjectResetsTheStagedSettingOfTheFirst) {
    CMT_Device_ICCard first;
    first.setSystemCode("FE00");
    first.setServiceCode("1111", 3, 0);
    CMT_Device_ICCard second;
    EXPECT_TRUE(first.setTypeCInfo(1));
    tovr_sim::FelicaSent sent = tovr_sim::acc_last_felica_sent();
    EXPECT_EQ("0", sent.info.system_code);
    EXPECT_EQ("0", sent.info.service_code_1);
    EXPECT_EQ(1, sent.info.blk_num_1);
}

TEST_F(ICCard, OverlongCodeIsRefusedByTheReader) {
    CMT_Device_ICCard card;
    card.setSystemCode(std::string(100000, 'C'));
    EXPECT_FALSE(card.setTypeCInfo(1));
    EXPECT_EQ(100000u, tovr_sim::acc_last_felica_sent().info.system_code.size());
    ESV_ZEL_ACC_FELICA_SETTING_INFO site{};
    ASSERT_TRUE(tovr_sim::acc_felica(1, &site));
    EXPECT_EQ("0", site.system_code);
}

TEST_F(ICCard, StagingFromManyThreadsStaysWhole) {
    // Each thread stages and sends its own setting; every setting the reader receives is one
    // that some thread staged as a whole string (never torn).
    std::vector<std::thread> threads;
    std::atomic<int> sent{0};
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t, &sent] {
            CMT_Device_ICCard card;
            const std::string code(64 + t, static_cast<char>('a' + t));
            for (int i = 0; i < 300; ++i) {
                card.setSystemCode(code);
                card.setServiceCode(code, t, i & 1);
                card.setTypeCInfo(1);
                ++sent;
            }
        });
    }
    for (auto& th : threads) th.join();
    EXPECT_EQ(1200, sent.load());
    tovr_sim::FelicaSent last = tovr_sim::acc_last_felica_sent();
    const std::string& s = last.info.system_code;
    ASSERT_FALSE(s.empty());
    EXPECT_EQ(std::string(s.size(), s[0]), s);
}

}  // namespace
