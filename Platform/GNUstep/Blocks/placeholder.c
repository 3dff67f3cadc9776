int qv_blocks_runtime_placeholder(void);
int qv_blocks_runtime_placeholder(void) {
    return 0;
}
