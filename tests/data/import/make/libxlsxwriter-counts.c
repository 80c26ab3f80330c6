/* The counts of Data.csv written by libxlsxwriter in its constant-memory mode, which
   writes every text as an inline string; the last dose is a formula with its result.
   cc libxlsxwriter-counts.c -lxlsxwriter -o /tmp/lxw && /tmp/lxw */
#include <xlsxwriter.h>

int main(void) {
    lxw_workbook_options options = {.constant_memory = LXW_TRUE, .tmpdir = NULL};
    lxw_workbook* book = workbook_new_opt("../libxlsxwriter-counts.xlsx", &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, "Data");
    const char* header[] = {"Dose", "Dead", "Alive"};
    const double rows[4][3] = {{0.5, 1, 19}, {1, 3, 17}, {2.5, 8, 12}, {5, 14, 6}};
    for (int c = 0; c < 3; ++c)
        worksheet_write_string(sheet, 0, (lxw_col_t)c, header[c], NULL);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 3; ++c)
            worksheet_write_number(sheet, (lxw_row_t)(r + 1), (lxw_col_t)c, rows[r][c], NULL);
    worksheet_write_formula_num(sheet, 5, 0, "=2*5", NULL, 10);
    worksheet_write_number(sheet, 5, 1, 19, NULL);
    worksheet_write_number(sheet, 5, 2, 1, NULL);
    return workbook_close(book) == LXW_NO_ERROR ? 0 : 1;
}
