#pragma once

#define IDD_FIRST_PAGE 100
#define IDD_SECOND_PAGE 101
#define IDD_THIRD_PAGE 102
