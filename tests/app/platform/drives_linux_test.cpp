#include "app/platform/drives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/tempFolder.h"

namespace kestrin::platform {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Made-up "/proc" and "/sys" of a system.
struct SystemDrives : testing::Test {
  test::TempFolder root;

  void Write(const std::string& path, const std::string& text) {
    fs::create_directories((root.Path() / path).parent_path());
    std::ofstream(root.Path() / path) << text;
  }

  /// A disk at `place` below /sys/devices and its first partition, mounted.
  void Disk(const std::string& place, const std::string& device, const std::string& partition,
            char removable) {
    Write("sys/devices/" + place + "/removable", {removable, '\n'});
    Write("sys/devices/" + place + "/part1/partition", "1\n");
    const fs::path links = root.Path() / "sys/dev/block";
    fs::create_directories(links);
    fs::create_symlink(root.Path() / "sys/devices" / place, links / device);
    fs::create_symlink(root.Path() / "sys/devices" / place / "part1", links / partition);
  }

  std::string Folder(const std::string& name) {
    fs::create_directories(root.Path() / name);
    return root / name;
  }

  std::vector<Drive> List() { return NativeDrives(root.Path().string())->List(); }
};

TEST_F(SystemDrives, AreTheMountedVolumesInMountOrder) {
  Disk("pci0/ata1/block/sda", "8:0", "8:1", '0');
  Disk("pci0/mmc/block/mmcblk0", "179:0", "179:1", '1');
  Disk("pci0/usb2/2-1/block/sdb", "8:16", "8:17", '0');
  const std::string card = Folder("card");
  const std::string stick = Folder("my stick");
  Write("proc/self/mountinfo",
        "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
        "23 22 0:21 / /proc rw - proc proc rw\n"
        "40 22 179:1 / " +
            card + " rw - vfat /dev/mmcblk0p1 rw\n41 22 8:17 / " + (root / "my\\040stick") +
            " rw - vfat /dev/sdb1 rw\n");
  const auto drives = List();
  ASSERT_EQ(drives.size(), 4U);
  EXPECT_EQ(drives[0].root, "/");
  EXPECT_FALSE(drives[0].removable);
  EXPECT_FALSE(drives[1].removable);
  EXPECT_EQ(drives[2].root, card);
  EXPECT_TRUE(drives[2].removable && drives[2].ready);
  EXPECT_EQ(drives[3].root, stick);
  EXPECT_TRUE(drives[3].removable && drives[3].ready);
}

TEST_F(SystemDrives, AWholeDiskWithoutPartitionsCountsToo) {
  Disk("pci0/usb2/2-1/block/sdb", "8:16", "8:17", '1');
  Write("proc/self/mountinfo", "41 22 8:16 / " + Folder("stick") + " rw - vfat /dev/sdb rw\n");
  EXPECT_TRUE(List().at(0).removable);
}

TEST_F(SystemDrives, AVolumeWhoseFolderIsGoneIsNotReady) {
  Disk("pci0/usb2/2-1/block/sdb", "8:16", "8:17", '1');
  Write("proc/self/mountinfo", "41 22 8:17 / " + (root / "gone") + " rw - vfat /dev/sdb1 rw\n");
  EXPECT_TRUE(List().at(0).removable);
  EXPECT_FALSE(List().at(0).ready);
}

TEST_F(SystemDrives, AnOpticalDriveIsNoRemovableOne) {
  Disk("pci0/ata2/block/sr0", "11:0", "11:1", '1');
  Disk("pci0/usb2/2-1/block/sr1", "11:2", "11:3", '1');
  Write("proc/self/mountinfo", "41 22 11:0 / " + Folder("cd") +
                                   " ro - iso9660 /dev/sr0 ro\n42 22 " + "11:2 / " + Folder("dvd") +
                                   " ro - udf /dev/sr1 ro\n");
  const auto drives = List();
  ASSERT_EQ(drives.size(), 2U);
  EXPECT_FALSE(drives[0].removable);
  EXPECT_FALSE(drives[1].removable);
}

TEST_F(SystemDrives, OnlyRemovableOnesAreAskedWhetherTheyAreReady) {
  Write("proc/self/mountinfo", "41 22 0:50 / " + Folder("net") + " rw - nfs server:/jobs rw\n");
  EXPECT_FALSE(List().at(0).ready);
}

TEST_F(SystemDrives, AVolumeMountedOverIsListedOnce) {
  const std::string folder = Folder("stick");
  Write("proc/self/mountinfo", "41 22 8:17 / " + folder + " rw - vfat /dev/sdb1 rw\n42 22 8:17 / " +
                                   folder + " rw - vfat /dev/sdb1 rw\n");
  EXPECT_EQ(List().size(), 1U);
}

TEST_F(SystemDrives, WhatCannotBeReadIsLeftOut) {
  EXPECT_THAT(List(), IsEmpty());
  Write("proc/self/mountinfo", "nonsense\n\n41 22\n");
  EXPECT_THAT(List(), IsEmpty());
}

TEST_F(SystemDrives, FilesInAFolderLeaveOutFolders) {
  Write("stick/a.sqlite", "");
  Write("stick/b.txt", "");
  Write("stick/folder.sqlite/c.sqlite", "");
  const auto drives = NativeDrives();
  EXPECT_THAT(drives->FilesIn(root / "stick"), UnorderedElementsAre("a.sqlite", "b.txt"));
  EXPECT_THAT(drives->FilesIn(root / "nowhere"), IsEmpty());
}

TEST(Drives, OfThisSystemCanBeListed) { EXPECT_NO_THROW(NativeDrives()->List()); }

}  // namespace
}  // namespace kestrin::platform
