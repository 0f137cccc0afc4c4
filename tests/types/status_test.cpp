// SPDX-License-Identifier: MIT
#include "vellum/status.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace {

using Vellum::Status;

static_assert(std::is_same_v<std::underlying_type_t<Status::StCode>, uint32_t>);
static_assert(offsetof(Status, code) == 0 && std::is_same_v<decltype(Status::code), Status::StCode>);
static_assert(std::is_trivially_copyable_v<Status>);
static_assert(std::is_same_v<decltype(std::declval<const Status&>().Text()), char*>);
static_assert(std::is_same_v<decltype(std::declval<Status&>().Set(Status::StFailed)), void>);

Status::StCode CodeOf(uint32_t value) { return static_cast<Status::StCode>(value); }

TEST(Status, StartsAsSuccess) {
    const Status s;
    EXPECT_EQ(s.Code(), Status::StSuccess);
    EXPECT_TRUE(s.Succeeded());
    EXPECT_FALSE(s.Failed());
    EXPECT_STREQ(s.Text(), "Operation Successful.");
}

TEST(Status, CodesHaveTheirValuesAndTexts) {
    const struct {
        Status::StCode code;
        uint32_t value;
        bool succeeded;
        const char* text;
    } expected[] = {
        {Status::StSuccess, 0x00000000, true, "Operation Successful."},
        {Status::StNoOp, 0x00000001, true, "NOOP.  No state changed."},
        {Status::StNotAble, 0x8000000A, false, "Not able to complete operation."},
        {Status::StNotImplemented, 0x80004001, false, "Operation not implemented."},
        {Status::StAborted, 0x80004004, false, "Operation aborted."},
        {Status::StFailed, 0x80004005, false, "Unspecified error in the operation."},
        {Status::StCatastrophic, 0x8000FFFF, false, "Undefined catastrphic failure during the operation."},
        {Status::StOutOfMemory, 0x8007000E, false, "Not enough memory to complete the operation."},
        {Status::StInvalidArg, 0x80070057, false, "One or more invalid arguments passed to the operation."},
    };
    for (const auto& e : expected) {
        const Status s(e.code);
        EXPECT_EQ(static_cast<uint32_t>(s.Code()), e.value);
        EXPECT_EQ(s.Succeeded(), e.succeeded) << e.text;
        EXPECT_EQ(s.Failed(), !e.succeeded) << e.text;
        EXPECT_STREQ(s.Text(), e.text);
        EXPECT_EQ(s.Text(), Status(e.code).Text());
    }
}

TEST(Status, SmallUnknownCodesHaveATextAndOthersNone) {
    for (uint32_t value = 2; value <= 15; ++value) {
        EXPECT_STREQ(Status(CodeOf(value)).Text(), "Status code returned is not defined") << value;
    }
    for (const uint32_t value : {16u, 17u, 0x7FFFFFFFu, 0x80000000u, 0x80000002u, 0x80004002u, 0xFFFFFFFFu}) {
        EXPECT_EQ(Status(CodeOf(value)).Text(), nullptr) << value;
    }
}

TEST(Status, TheHighBitMeansFailure) {
    EXPECT_TRUE(Status(CodeOf(0x7FFFFFFF)).Succeeded());
    EXPECT_FALSE(Status(CodeOf(0x7FFFFFFF)).Failed());
    EXPECT_FALSE(Status(CodeOf(0x80000000)).Succeeded());
    EXPECT_TRUE(Status(CodeOf(0x80000000)).Failed());
}

TEST(Status, EverySetterSetsTheCode) {
    Status s;
    EXPECT_EQ(&(s = Status::StAborted), &s);
    EXPECT_EQ(s.Code(), Status::StAborted);
    EXPECT_EQ(&s(Status::StFailed), &s);
    EXPECT_EQ(s.Code(), Status::StFailed);
    s.Set(Status::StNoOp);
    EXPECT_EQ(s.Code(), Status::StNoOp);

    const Status source(Status::StInvalidArg);
    EXPECT_EQ(&(s = source), &s);
    EXPECT_EQ(s.Code(), Status::StInvalidArg);
    const Status& self = s;
    s = self;
    EXPECT_EQ(s.Code(), Status::StInvalidArg);
    EXPECT_EQ(Status(source).Code(), Status::StInvalidArg);
}

TEST(Status, ComparesCodesInEveryForm) {
    Status failed(Status::StFailed);
    Status alsoFailed(Status::StFailed);
    Status aborted(Status::StAborted);
    const Status constFailed(Status::StFailed);
    const Status constAborted(Status::StAborted);

    EXPECT_TRUE(failed == alsoFailed);
    EXPECT_FALSE(failed != alsoFailed);
    EXPECT_FALSE(failed == aborted);
    EXPECT_TRUE(failed != aborted);

    EXPECT_TRUE(failed == constFailed);
    EXPECT_FALSE(failed != constFailed);
    EXPECT_FALSE(failed == constAborted);
    EXPECT_TRUE(failed != constAborted);
    EXPECT_TRUE(constFailed == failed);
    EXPECT_FALSE(constFailed != failed);
    EXPECT_FALSE(constFailed == constAborted);
    EXPECT_TRUE(constFailed != constAborted);

    EXPECT_TRUE(failed == Status::StFailed);
    EXPECT_FALSE(failed != Status::StFailed);
    EXPECT_FALSE(constFailed == Status::StAborted);
    EXPECT_TRUE(constFailed != Status::StAborted);
}

TEST(Status, StoresUnknownCodes) {
    const Status s(CodeOf(7));
    EXPECT_EQ(static_cast<uint32_t>(s.Code()), 7u);
    EXPECT_TRUE(s == CodeOf(7));
    EXPECT_TRUE(s.Succeeded());
}

}  // namespace
