#include <array>

#include "bank/catalogue.h"

namespace practice {
namespace {

constexpr std::string_view chapter_questions =
    "Chapter-opening multiple-choice questions from the book.";
constexpr std::string_view complete_exam =
    "A complete exam, which includes all book and CD-ROM questions.";

const std::array<Exam, 7> all_exams{{
    {.code = "46000",
     .name = "FALCO",
     .title = "Brightwater Press FALCO",
     .data_file = "bw_falco.dat",
     .book_file_name = "book_falco.pdf",
     .cover_picture = "FALCO_front_cover.jpg",
     .photo_file_name = "FALCO_photo.jpg",
     .saver_program = "",
     .quiz_names = {"FALCO Book Quiz", "FALCO CD-ROM Quiz", "Full FALCO Exam"},
     .quiz_notes = {"", "Includes questions from the Book and CD-ROM combined.", ""},
     .banks = &falco_banks},
    {.code = "46002",
     .name = "ROBIN",
     .title = "Brightwater Press ROBIN",
     .data_file = "bw_robin.dat",
     .book_file_name = "book_robin.pdf",
     .cover_picture = "ROBIN_front_cover.jpg",
     .photo_file_name = "FALCO_photo.jpg",
     .saver_program = "bw_robin.exe",
     .quiz_names = {"ROBIN Book Questions", "ROBIN CD-ROM Questions", "Full ROBIN Exam"},
     .quiz_notes = {chapter_questions,
                    "Unique multiple choice, fill-in-the-blank and drag & drop questions.",
                    complete_exam},
     .banks = &robin_banks},
    {.code = "46003",
     .name = "EGRET",
     .title = "Brightwater Press JASPER EGRET",
     .data_file = "bw_egret.dat",
     .book_file_name = "book_egret.pdf",
     .cover_picture = "JASPER_EGRET_Front_Cover.jpg",
     .photo_file_name = "FALCO_photo.jpg",
     .saver_program = "bw_egret.exe",
     .quiz_names = {"Book Questions", "CD-ROM Questions", "Full JASPER EGRET Exam"},
     .quiz_notes = {chapter_questions,
                    "Unique multiple choice, fill-in-the-blank, drag & drop, and simulation "
                    "questions.",
                    complete_exam},
     .banks = &egret_banks},
    {.code = "46004",
     .name = "LARK",
     .title = "Brightwater Press JASPER LARK",
     .data_file = "bw_lark.dat",
     .book_file_name = "book_lark.pdf",
     .cover_picture = "JASPER_LARK_ECG_Front_Cover.jpg",
     .photo_file_name = "FALCO_photo.jpg",
     .saver_program = "bw_lark.exe",
     .quiz_names = {"Book Questions", "CD-ROM Questions", "Full JASPER LARK Exam"},
     .quiz_notes = {chapter_questions,
                    "Unique multiple choice, fill-in-the-blank, drag-and-drop questions, and "
                    "simulation questions.",
                    complete_exam},
     .banks = &lark_banks},
    {.code = "46005",
     .name = "HERON",
     .title = "Brightwater Press JASPER HERON",
     .data_file = "bw_heron.dat",
     .book_file_name = "book_heron.pdf",
     .cover_picture = "JASPER_HERON_Front_Cover.jpg",
     .photo_file_name = "FALCO_photo.jpg",
     .saver_program = "bw_heron.exe",
     .quiz_names = {"Book Questions", "CD-ROM Questions", "Full JASPER HERON Exam"},
     .quiz_notes = {chapter_questions,
                    "Unique multiple choice, fill-in-the-blank, drag & drop, and simulation "
                    "questions.",
                    complete_exam},
     .banks = &heron_banks},
    {.code = "46006",
     .name = "MERLE",
     .title = "Brightwater Press OPAL MERLE",
     .data_file = "bw_merle.dat",
     .book_file_name = "book_merle.pdf",
     .cover_picture = "OPAL_MERLE_ECG_Front_Cover.jpg",
     .photo_file_name = "OPAL_Photo.jpg",
     .saver_program = "bw_merle.exe",
     .quiz_names = {"Book Questions", "CD-ROM Questions", "Full OPAL MERLE Exam"},
     .quiz_notes = {chapter_questions,
                    "Unique multiple-choice, fill-in-the-blank, drag-and-drop, and simulation "
                    "questions.",
                    complete_exam},
     .banks = &merle_banks},
    {.code = "46007",
     .name = "WREN",
     .title = "Brightwater Press OPAL WREN",
     .data_file = "bw_wren.dat",
     .book_file_name = "book_wren.pdf",
     .cover_picture = "OPAL_WREN_ECG_Front_Cover.jpg",
     .photo_file_name = "OPAL_Photo.jpg",
     .saver_program = "bw_wren.exe",
     .quiz_names = {"Book Questions", "CD-ROM Questions", "Full OPAL WREN Exam"},
     .quiz_notes = {chapter_questions,
                    "Unique multiple-choice, fill-in-the-blank, drag-and-drop, and simulation "
                    "questions.",
                    complete_exam},
     .banks = &wren_banks},
}};

}  // namespace

std::span<const Exam> exams() { return all_exams; }

}  // namespace practice
