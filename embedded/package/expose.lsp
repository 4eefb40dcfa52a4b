;; Functions that external code calls. (Those that the project manager exposes itself when it registers
;; with a document are not in the list.)

(foreach name
    '(ryv_get_var c:kq_getenv c:kq_msg kq_1_luk4_replaceable_substitution
      c:kq_get_recent_prj_lst ryv_proj_closed c:ryv_proj_new c:ryv_proj_recent c:ryv_kqp_reread
      c:ryv_update_dwg_lst c:ryv_proj_multiple_remove c:ryv_sort_dlst c:ryv_proj_edit_proj_description_lines
      c:ryv_proj_dwg_secsub_properties c:kq_proj_properties_display c:kq_help_proj_settings
      c:ryv_proj_symbol_lib_dlg c:kq_reread_dwg_params c:ryv_tb_nodlg c:kq_upd_ldr_ref c:ryv_ladr_update_sheet
      c:ryv_check_linkterm c:ryv_term_linkterm_update_main
      c:kq_xref_setup_graphical c:kq_xref_setup_table c:kq_xref_setup_text
      c:ryv_cfg_component_suffix_dlg c:ryv_cfg_wirenum_suffix_dlg ryv_rename_wire_properties
      kq_fio_does_block_exist_disk kq_fio_block_path_failed_msg c:kq_get_locs_on_dwg c:kq_get_locs_for_proj
      kqupda_check_and_lock kqupda_unlock)
    (expose-function name))
