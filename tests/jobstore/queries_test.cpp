#include "jobstore/queries.h"

#include <gtest/gtest.h>

namespace kestrin::jobstore {
namespace {

TEST(QueryTexts, JobSelection) {
  EXPECT_EQ(VersionTableCount::Text(),
            "Select Count(*) From sqlite_master WHERE type='table' AND name= "
            "'VersionChangeTable'");
  EXPECT_EQ(NewestVersion::Text(),
            "Select sqlite_ver From VersionChangeTable Order By gpsWeek DESC, gpsMsec DESC");
  EXPECT_EQ(EpochCount::Text(), "Select Count(*) From GpsDataTable Where type & 8192");
  EXPECT_EQ(NewestEpoch::Text(),
            "Select gpsWeek, gpsMsec From GpsDataTable Where type & 8192 Order By gpsWeek DESC, "
            "gpsMsec DESC");
}

TEST(QueryTexts, ReferenceLocations) {
  EXPECT_EQ(References::Text(),
            "Select gpsWeek, gpsMsec, latitude, longitude From ReferenceLocationChangeTable Order "
            "By gpsWeek, gpsMsec");
  EXPECT_EQ(ReferencesWithAltitude::Text(),
            "Select gpsWeek, gpsMsec, latitude, longitude, altitude From "
            "ReferenceLocationChangeTable Order By gpsWeek, gpsMsec");
}

TEST(QueryTexts, ChangeTables) {
  EXPECT_EQ(Implements::Text(), "Select * From ImplChangeTable Order By gpsWeek, gpsMsec");
  EXPECT_EQ(DesiredRates::Text(),
            "Select gpsWeek, gpsMsec, desiredRate0, desiredRate1, desiredRate2 From "
            "AsAppliedDesRateChangeTable Order By gpsWeek, gpsMsec");
  EXPECT_EQ(ActualRates::Text(),
            "Select gpsWeek, gpsMsec, actualRate0, actualRate1, actualRate2 From "
            "AsAppliedActRateChangeTable Order By gpsWeek, gpsMsec");
  EXPECT_EQ(Products::Text(),
            "Select gpsWeek, gpsMsec, ProductName0, ProductName1, ProductName2 From "
            "AsAppliedProductChangeTable Order By gpsWeek, gpsMsec");
}

TEST(QueryTexts, Maxima) {
  EXPECT_EQ(BoomStatusMaximum::Text(), "Select MAX(boomStatusBitfield) From GpsDataTable");
  EXPECT_EQ(DesiredRateMaxima::Text(),
            "Select MAX(desiredRate0), MAX(desiredRate1), MAX(desiredRate2) From "
            "AsAppliedDesRateChangeTable");
  EXPECT_EQ(ActualRateMaxima::Text(),
            "Select MAX(actualRate0), MAX(actualRate1), MAX(actualRate2) From "
            "AsAppliedActRateChangeTable");
}

TEST(QueryTexts, SectionWidthMaximumNamesItsSlot) {
  EXPECT_EQ(SectionWidthMaximum::Text(0), "Select MAX(width0) From ImplChangeTable");
  EXPECT_EQ(SectionWidthMaximum::Text(9), "Select MAX(width9) From ImplChangeTable");
  EXPECT_EQ(SectionWidthMaximum::Text(15), "Select MAX(width15) From ImplChangeTable");
}

TEST(QueryTexts, ExportsSelectEastBeforeNorth) {
  EXPECT_EQ(WireEpochs::Text(),
            "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, type From GpsDataTable Where type & "
            "8192 Order By gpsWeek, gpsMsec");
  EXPECT_EQ(PolyEpochs::Text(),
            "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type From GpsDataTable Where "
            "type & 8192 Order By gpsWeek, gpsMsec");
  EXPECT_EQ(PointEpochs::Text(),
            "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, d_I_B__B2, yaw, pitch, roll, speed, "
            "type, boomStatusBitfield From GpsDataTable Where type & 8192 Order By gpsWeek, "
            "gpsMsec");
  EXPECT_EQ(BoomEpochs::Text(),
            "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type, boomStatusBitfield From "
            "GpsDataTable Where type & 8192 Order By gpsWeek, gpsMsec");
}

TEST(QueryTexts, PreviewsSelectNorthBeforeEast) {
  EXPECT_EQ(PreviewBoomEpochs::Text(),
            "Select gpsWeek, gpsMsec, n_I_B__B2, e_I_B__B2, yaw From GpsDataTable Where type & "
            "8192 Order By gpsWeek, gpsMsec");
  EXPECT_EQ(PreviewWireEpochs::Text(),
            "Select gpsWeek, gpsMsec, n_I_B__B2, e_I_B__B2, type From GpsDataTable Where type & "
            "8192 Order By gpsWeek, gpsMsec");
  EXPECT_EQ(PreviewPolyEpochs::Text(),
            "Select gpsWeek, gpsMsec, n_I_B__B2, e_I_B__B2, type, yaw From GpsDataTable Where "
            "type & 8192 Order By gpsWeek, gpsMsec");
  EXPECT_EQ(PreviewPointEpochs::Text(),
            "Select gpsWeek, gpsMsec, n_I_B__B2, e_I_B__B2 From GpsDataTable Where type & 8192 "
            "Order By gpsWeek, gpsMsec");
}

}  // namespace
}  // namespace kestrin::jobstore
